#pragma once
// The XML a panel answers with on the bus: the status on the document element and, for an
// answer that was given, the values under minimumMetadata.
#include <vector>

#include "Fnd/WString.h"
#include "PanelDescription.h"

namespace PanelkitManager {

// values holds one text per field of the panel, in form order ("true" or "false" for a box).
Fnd::WString WriteMinimumMetadataAnswer(const PanelDescription& panel, const std::vector<Fnd::WString>& values,
                                        bool applyToAllDestinations);
// An answer with a status and nothing else, such as "Cancel".
Fnd::WString WriteStatusAnswer(Fnd::WStringView status);

// The keywords of a keywords field: split at commas and semicolons, trimmed, blanks left out.
std::vector<Fnd::WString> SplitKeywords(Fnd::WStringView text);

} // namespace PanelkitManager
