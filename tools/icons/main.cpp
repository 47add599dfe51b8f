// Writes the whole icon set into the folder given, by default the repository's resources/images.
// Every file is written whole to a temporary name and renamed, so a failed run leaves the old set.
#include <QBuffer>
#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <cstdio>
#include <exception>

#include "Glyphs.h"
#include "IconSet.h"
#include "PngPainter.h"
#include "SvgWriter.h"

namespace {

bool WriteWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray EncodePng(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    int pngs = 0;
    int svgs = 0;
    try {
        for (const icons::ImageFile& file : icons::IconSetFiles()) {
            const icons::Glyph glyph = icons::GlyphForFamily(file.family);
            const std::string colour = icons::ColourForState(file.state);
            QByteArray bytes;
            if (file.svg) {
                bytes = QByteArray::fromStdString(
                    icons::WriteSvg(glyph, file.baseWidth, file.baseHeight, file.strokeWidth, colour));
                ++svgs;
            } else {
                bytes =
                    EncodePng(icons::PaintPng(glyph, file.baseWidth, file.baseHeight, file.scale,
                                              file.pixelWidth, file.pixelHeight, file.strokeWidth, colour));
                ++pngs;
            }
            const QString path = folder + "/" + QString::fromStdString(file.fileName);
            if (bytes.isEmpty() || !WriteWhole(path, bytes)) {
                std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
                return 1;
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    std::printf("%d PNG and %d SVG written to %s\n", pngs, svgs, qPrintable(folder));
    return 0;
}
