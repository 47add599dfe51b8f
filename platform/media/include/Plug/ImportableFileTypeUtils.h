#pragma once
// The file extensions the application can import, gathered from the media providers. Each
// provider adds the extensions it reads under its own name; the plain directory provider's list is
// there from the start.
#include <set>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace Plug {

// Kinds of media a provider may read. Other numbers name no kind and answer no extension.
enum ImportableFileType : int {
    kImportableFileTypeVideo = 1,
    kImportableFileTypeAudio = 2,
    kImportableFileTypeStill = 3,
    kImportableFileTypeAll = 6,
};

class ImportableFileTypeUtils {
public:
    // Lower-case extensions without dot, sorted; "*" when a provider reads any file. Type 6
    // answers every kind.
    static std::set<Fnd::WString> GetImportableFileExtensions(int type);
    // Whether some provider reads the file, judged by its extension without regard to case.
    static bool IsImportableFile(Fnd::WStringView path);

    // Adds extensions of one kind for a provider; "mov", ".mov", "*.MOV" all add "mov". A
    // provider may register several kinds, and again to add more.
    static void RegisterProviderExtensions(std::string_view provider, ImportableFileType type,
                                           const std::vector<Fnd::WString>& extensions);
    // Removes everything the provider added.
    static void UnregisterProvider(std::string_view provider);
};

} // namespace Plug
