#pragma once
#include <string_view>

#include "Fnd/Message.h"

namespace Proj {

// Posted to the preferences' station instead of writing a key that is read-only, so that the
// application can tell the user the setting was not kept. It carries nothing.
struct OverrideReadOnlyPropertyWarningMessage : Fnd::MessageT<OverrideReadOnlyPropertyWarningMessage> {
    static constexpr std::string_view kTypeName = "Proj::OverrideReadOnlyPropertyWarningMessage";
};

} // namespace Proj
