#include "Browse/PlainDirectoryProvider.h"

#include "CardFolder.h"

namespace Browse {

Content PlainDirectoryProvider::GetContent(const Fnd::WString& directory, const Fnd::WString& /*filter*/,
                                           const std::set<std::string>& fields,
                                           const void* /*reserved*/) const {
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

} // namespace Browse
