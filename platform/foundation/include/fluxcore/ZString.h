#pragma once
// Localised text. A text is written with its key and default in one string,
// "$$$/path/Key=Default text"; "@0" to "@9" take arguments and "^n" is a line break.
#include <initializer_list>
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace fluxcore {

class ZString {
public:
    // A string without the "$$$/" form is its own default and has no key.
    explicit ZString(std::string_view keyAndDefault);

    const std::string& Key() const { return key_; }
    const std::string& DefaultText() const { return default_; }

    // The translation if the catalogue has one, else the default; "^n" becomes a line break and
    // "@0".."@9" are replaced by the arguments (a placeholder without argument stays as it is).
    Fnd::WString ToWString(std::initializer_list<Fnd::WString> arguments = {}) const;

private:
    std::string key_;
    std::string default_;
};

// Shorthand for ZString(text).ToWString(arguments).
Fnd::WString Localize(std::string_view keyAndDefault, std::initializer_list<Fnd::WString> arguments = {});

} // namespace fluxcore
