#pragma once
// Both Canon XF families keep their clips in CONTENTS/CLIPSnnn/ folders that hold an INDEX.MIF;
// they differ in what lies inside.
#include <vector>

#include "CardFolder.h"

namespace Browse::card {

// The CLIPSnnn folders of the card, in name order.
std::vector<Entry> CanonClipsFolders(const Fnd::WString& cardRoot);

} // namespace Browse::card
