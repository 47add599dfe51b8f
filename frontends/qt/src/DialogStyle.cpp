#include "IgdQt/DialogStyle.h"

#include <QApplication>
#include <QFont>
#include <QGuiApplication>
#include <QStyle>
#include <QStyleFactory>

namespace igd::qt {

void ApplyDialogStyle(QApplication& application) {
    // Fusion draws alike on every desktop and offscreen, so screenshots show what users see.
    if (QStyle* style = QStyleFactory::create(QStringLiteral("Fusion")))
        application.setStyle(style);
    application.setPalette(application.style()->standardPalette());
    // Without a desktop there is no system font to follow: a sans face at the usual dialog size.
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal")) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        font.setHintingPreference(QFont::PreferFullHinting);
        application.setFont(font);
    }
}

} // namespace igd::qt
