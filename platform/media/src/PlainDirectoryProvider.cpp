#include "Browse/PlainDirectoryProvider.h"

#include "CardFolder.h"
#include "ScopedScans.h"

namespace Browse {

namespace {

Content MakeContent(const Fnd::WString& directory, const std::set<std::string>& fields) {
    Content content;
    for (const card::Entry& entry : card::List(card::ToPath(directory))) {
        ContentFields& entryFields = content[Fnd::FromUTF8(entry.name)];
        if (entry.folder)
            continue;
        if (fields.count(kNameField))
            entryFields[kNameField] = any_regular_t(Fnd::FromUTF8(card::Stem(entry.name)));
        if (fields.count(kExtraPathField))
            entryFields[kExtraPathField] = any_regular_t(card::ToWide(entry.path));
    }
    return content;
}

} // namespace

Content PlainDirectoryProvider::GetContent(const Fnd::WString& directory, const Fnd::WString& /*filter*/,
                                           const std::set<std::string>& fields,
                                           const void* /*reserved*/) const {
    // A folder gathered file by file is listed once per scope rather than twice per file.
    return *GetSharedContent(directory, fields);
}

std::shared_ptr<const Content>
PlainDirectoryProvider::GetSharedContent(const Fnd::WString& directory,
                                         const std::set<std::string>& fields) const {
    return scans::ContentOf(*this, directory, fields, [&] { return MakeContent(directory, fields); });
}

} // namespace Browse
