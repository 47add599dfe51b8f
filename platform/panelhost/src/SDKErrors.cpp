#include "Plug/SDKErrors.h"

#include <iostream>
#include <mutex>

#include "fluxcore/ZString.h"

namespace Plug::SDKErrors {
namespace {

struct LastError {
    std::mutex mutex;
    Fnd::WString text;
};

LastError& Last() {
    static LastError last;
    return last;
}

} // namespace

void SetSDKErrorString(std::string_view text, const Fnd::WString& detail) {
    Fnd::WString line = fluxcore::Localize(text);
    if (!detail.empty())
        line += u" " + detail;
    std::cerr << "igd: " << Fnd::ToUTF8(line) << '\n';
    std::lock_guard lock(Last().mutex);
    Last().text = std::move(line);
}

Fnd::WString GetSDKErrorString() {
    std::lock_guard lock(Last().mutex);
    return Last().text;
}

void ClearSDKErrorString() {
    std::lock_guard lock(Last().mutex);
    Last().text.clear();
}

} // namespace Plug::SDKErrors
