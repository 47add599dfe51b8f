#include "Browse/FileListForCopy.h"

#include "Browse/ProviderRegistry.h"
#include "CardFolder.h"

namespace Browse {

bool FileListForCopy::GetProviderAndRootFromPath(const Fnd::WString& path, const ProviderWrapper*& provider,
                                                 Fnd::WString& root, Fnd::WString& name) {
    provider = nullptr;
    root.clear();
    name.clear();
    const card::fs::path native = card::ToPath(path).lexically_normal();
    std::error_code error;
    const card::fs::file_status status = card::fs::status(native, error);
    if (error || !card::fs::exists(status))
        return false;

    if (!card::fs::is_directory(status)) {
        const CardProvider* cardProvider = nullptr;
        CardClip clip;
        Fnd::WString cardRoot;
        if (ProviderRegistry::FindClipOfFile(card::ToWide(native), cardProvider, cardRoot, clip)) {
            provider = cardProvider;
            root = cardRoot;
            // The clip's entry is named by its media file, whichever of its files was named.
            name = card::ToWide(card::ToPath(clip.mediaPath).lexically_relative(card::ToPath(cardRoot)));
            return true;
        }
    }
    card::fs::path parent = native.parent_path();
    if (native.filename().empty() || parent.empty())
        return false;
    provider = &ProviderRegistry::PlainDirectory();
    root = card::ToWide(parent);
    name = Fnd::FromUTF8(native.filename().string());
    return true;
}

} // namespace Browse
