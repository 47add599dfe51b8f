#pragma once
// The two walks that run the section protocol over a whole tree.
#include "transfer/SectionViewEx.h"

namespace wrangler::ui {

// Builds the section, lets it create its children, and builds those the same way, depth first. A
// section that is built already is not loaded again, so a section added later to a built tree is
// built by calling this on it alone.
void BuildSectionTree(SectionViewEx& section, const fluxui::utility::ResourceManager& resources,
                      fluxui::sketcher::SupplierInterface* supplier);

// LoadFromSettings on the section and then on each child, depth first. The children are read after
// the section has loaded, so those it adds while loading are loaded as well.
void ApplySettingsToTree(SectionViewEx& section);

} // namespace wrangler::ui
