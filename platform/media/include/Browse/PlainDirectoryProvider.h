#pragma once
#include "Browse/ProviderWrapper.h"

namespace Browse {

// Plain folders: every file is its own entry, named by its file name; no clip structure.
class PlainDirectoryProvider : public ProviderWrapper {
public:
    static constexpr const char* kIdentification = "com.veltrix.Kestrel.WinProviderDirectory";

    std::string GetIdentification() const override { return kIdentification; }
    bool ShouldCheckFilter() const override { return true; }
    // Entries are the files and folders of directory; a file's ExtraPath is the file itself and
    // its Name the file name without extension.
    Content GetContent(const Fnd::WString& directory, const Fnd::WString& filter,
                       const std::set<std::string>& fields, const void* reserved) const override;
    std::shared_ptr<const Content> GetSharedContent(const Fnd::WString& directory,
                                                    const std::set<std::string>& fields) const override;
};

} // namespace Browse
