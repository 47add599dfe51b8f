#include "fluxcore/ZString.h"

#include "fluxcore/Localizer.h"

namespace fluxcore {

namespace {

constexpr std::string_view kKeyPrefix = "$$$/";

// One pass over the text: what an argument brings in is never scanned again, so an argument
// that itself contains "@1" or "^n" stays exactly as given.
Fnd::WString Expand(Fnd::WStringView text, std::initializer_list<Fnd::WString> arguments) {
    Fnd::WString out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const Fnd::WChar c = text[i];
        const Fnd::WChar next = i + 1 < text.size() ? text[i + 1] : u'\0';
        if (c == u'^' && next == u'n') {
            out.push_back(u'\n');
            ++i;
        } else if (c == u'@' && next >= u'0' && next <= u'9' &&
                   static_cast<std::size_t>(next - u'0') < arguments.size()) {
            out.append(*(arguments.begin() + (next - u'0')));
            ++i;
        } else {
            out.push_back(c);
        }
    }
    return out;
}

} // namespace

ZString::ZString(std::string_view keyAndDefault) {
    if (!keyAndDefault.starts_with(kKeyPrefix)) {
        default_ = keyAndDefault;
        return;
    }
    const auto equals = keyAndDefault.find('=');
    key_ = keyAndDefault.substr(0, equals);
    // Without a default the key itself shows, so that a missing text is seen and can be found.
    default_ = equals == std::string_view::npos ? key_ : keyAndDefault.substr(equals + 1);
}

Fnd::WString ZString::ToWString(std::initializer_list<Fnd::WString> arguments) const {
    if (!key_.empty()) {
        if (auto translation = config::Localizer::Get().Lookup(key_))
            return Expand(*translation, arguments);
    }
    return Expand(Fnd::FromUTF8(default_), arguments);
}

Fnd::WString Localize(std::string_view keyAndDefault, std::initializer_list<Fnd::WString> arguments) {
    return ZString(keyAndDefault).ToWString(arguments);
}

} // namespace fluxcore
