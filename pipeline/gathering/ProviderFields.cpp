#include "pipeline/gathering/ProviderFields.h"

namespace IGD {
namespace {

// One field of one entry; null when the provider has no such entry or field.
const Browse::any_regular_t* FindField(const Browse::Content& content, const Fnd::WString& name,
                                       const std::string& field) {
    auto entry = content.find(name);
    if (entry == content.end())
        return nullptr;
    auto value = entry->second.find(field);
    return value == entry->second.end() ? nullptr : &value->second;
}

void Flatten(const Browse::any_regular_t& value, std::vector<Fnd::WString>& out) {
    if (const Fnd::WString* text = value.AsString())
        out.push_back(*text);
    else if (const auto* array = value.AsArray())
        for (const Browse::any_regular_t& element : *array)
            Flatten(element, out);
}

std::shared_ptr<const Browse::Content> ReadField(const Browse::ProviderWrapper& provider,
                                                 const std::string& directory, const std::string& field) {
    return provider.GetSharedContent(Fnd::FromUTF8(directory), {field});
}

} // namespace

bool IsPlainDirectoryProvider(const std::string& identification) {
    if (identification.empty())
        return true;
    const std::size_t dot = identification.rfind('.');
    if (dot == std::string::npos)
        return true;
    const std::string last = identification.substr(dot + 1);
    const std::size_t provider = last.find("Provider");
    if (provider == std::string::npos)
        return true;
    return last.substr(provider + std::string("Provider").size()) == "Directory";
}

void ReadProviderExtraPaths(const Browse::ProviderWrapper* provider, const std::string& directory,
                            const Fnd::WString& name, std::vector<Fnd::WString>& out) {
    if (!provider)
        return;
    const auto content = ReadField(*provider, directory, Browse::kExtraPathField);
    if (const Browse::any_regular_t* value = FindField(*content, name, Browse::kExtraPathField))
        Flatten(*value, out);
}

void ReadProviderName(const Browse::ProviderWrapper* provider, const std::string& directory,
                      const Fnd::WString& name, Fnd::WString& out) {
    if (!provider)
        return;
    const auto content = ReadField(*provider, directory, Browse::kNameField);
    if (const Browse::any_regular_t* value = FindField(*content, name, Browse::kNameField))
        if (const Fnd::WString* text = value->AsString())
            out = *text;
}

} // namespace IGD
