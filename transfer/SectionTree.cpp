#include "transfer/SectionTree.h"

#include <vector>

namespace wrangler::ui {

class SectionTreeWalk {
public:
    static bool Build(SectionViewEx& section, const fluxui::utility::ResourceManager& resources,
                      fluxui::sketcher::SupplierInterface* supplier);
    static void Apply(SectionViewEx& section);
};

// Answers whether anything was built or created in the section's tree, so that a tree that is
// built already is left exactly as it is: no second ChildrenBuilt, no child shown again.
bool SectionTreeWalk::Build(SectionViewEx& section, const fluxui::utility::ResourceManager& resources,
                            fluxui::sketcher::SupplierInterface* supplier) {
    bool changed = !section.IsBuilt();
    section.Build(resources, supplier);
    if (!section.childrenCreated_) {
        section.childrenCreated_ = true;
        section.CreateChildSections();
        changed = true;
    }
    // Copied: a child's own protocol may add or remove siblings.
    const std::vector<SectionViewExRef> children = section.childSections_;
    for (const SectionViewExRef& child : children) {
        if (Build(*child, resources, supplier)) {
            child->UI_Show(true);
            changed = true;
        }
    }
    if (changed) {
        section.ChildrenBuilt();
        if (!section.childSections_.empty())
            section.UpdateSectionLayout();
    }
    return changed;
}

// The child list is read after the section has loaded: children it adds then are reached too.
void SectionTreeWalk::Apply(SectionViewEx& section) {
    section.LoadFromSettings();
    const std::vector<SectionViewExRef> children = section.childSections_;
    for (const SectionViewExRef& child : children)
        Apply(*child);
}

void BuildSectionTree(SectionViewEx& section, const fluxui::utility::ResourceManager& resources,
                      fluxui::sketcher::SupplierInterface* supplier) {
    SectionTreeWalk::Build(section, resources, supplier);
}

void ApplySettingsToTree(SectionViewEx& section) {
    SectionTreeWalk::Apply(section);
}

} // namespace wrangler::ui
