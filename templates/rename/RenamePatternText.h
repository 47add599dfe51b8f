#pragma once
// How the rename rows show a date or time pattern: strftime tokens as the letters a user reads,
// and the pattern beside the word that says which date it is.
#include <string_view>

#include "Fnd/WString.h"

namespace IGD {

// "%Y-%m-%d" as "YYYY-MM-DD". Text put in for one token is never searched again, so a
// translation that happens to contain "%" is shown as it stands.
Fnd::WString PatternDisplayText(Fnd::WStringView pattern);

// The pattern in display form beside the localised kind word, e.g. "YYYYMMDD (Creation Date)",
// through the localised template that puts them together.
Fnd::WString PatternWithKind(std::string_view templateKey, Fnd::WStringView pattern,
                             std::string_view kindKey);

} // namespace IGD
