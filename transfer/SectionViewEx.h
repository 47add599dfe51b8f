#pragma once
// The base of every option panel of the dialog: a foldable header over the controls of a layout,
// with child sections stacked below them.
#include <cstddef>
#include <string>
#include <vector>

#include <boost/intrusive_ptr.hpp>

#include "Fnd/WString.h"
#include "fluxcore/geom/Geometry.h"
#include "fluxui/controls/UI_SectionView.h"
#include "fluxui/ui/UI_NodeBuilder.h"

namespace fluxui::utility {
class ResourceManager;
}

namespace wrangler::ui {

class SectionViewEx;
using SectionViewExRef = boost::intrusive_ptr<SectionViewEx>;

class SectionViewEx : public fluxui::controls::UI_SectionView {
public:
    // An empty title makes a plain block: no header, no border, and nothing to fold. An empty
    // layout name gives a section without controls of its own.
    SectionViewEx(const Fnd::WString& title, std::string layoutName);
    const char* UI_GetClassName() const override { return "SectionViewEx"; }

    // Re-measures the content and the children, places them, and passes the change on to the
    // parent section, so that it climbs to the root.
    virtual void UpdateSectionLayout();

    // Loads the layout, then binds and wires its controls. A second call does nothing, so a section
    // built alone can later join a tree that is built as a whole.
    void Build(const fluxui::utility::ResourceManager& resources,
               fluxui::sketcher::SupplierInterface* supplier);
    bool IsBuilt() const { return built_; }
    // Builds a section that joined this one after the build (a row, a destination) with the
    // resources this one was built from. Asking before this section is built is a fault.
    void BuildAddedSection(SectionViewEx& section) const;

    const std::string& GetLayoutName() const { return layoutName_; }
    // The root of the loaded layout, null before the build or without a layout.
    const fluxui::ui::UI_NodeRef& GetLayoutContentView() const { return contentView_; }
    fluxcore::geom::PointF GetContentSize() const { return contentSize_; }
    float GetChildSpacing() const { return childSpacing_; }
    void SetChildSpacing(float spacing) { childSpacing_ = spacing; }
    bool IsScrollBarShown() const { return scrollBarShown_; }
    // The container sets this while its scroll bar shows; the outline then reaches under the bar.
    void SetScrollBarShown(bool shown);

    // The node of the layout with that id, null when the layout has none.
    fluxui::ui::UI_NodeRef FindControl(const std::string& id) const;
    // The control of that id as the class the section expects. A missing id or another class is a
    // fault of the layout: it raises the invalid type conversion error.
    template <typename Control> boost::intrusive_ptr<Control> BindControl(const std::string& id) const {
        const fluxui::ui::UI_NodeRef node = FindControl(id);
        auto* control = dynamic_cast<Control*>(node.get());
        if (!control)
            ThrowInvalidTypeConversion();
        return boost::intrusive_ptr<Control>(control);
    }
    const fluxui::ui::ControlsById& GetControlsById() const { return controlsById_; }

    // Children in display order, top to bottom.
    const std::vector<SectionViewExRef>& GetChildSections() const { return childSections_; }
    // Inserts before `before`, or at the end when it is null or not a child.
    void InsertChildSection(const SectionViewExRef& child, const SectionViewEx* before = nullptr);
    // False, and nothing changes, when it is not a child. skipLayout lets a caller remove several
    // with one layout pass at the end.
    bool RemoveChildSection(const SectionViewEx* child, bool skipLayout = false);
    void RemoveAllChildSections();
    // False when the child is missing or already at that end.
    bool MoveChildSectionUp(const SectionViewEx* child);
    bool MoveChildSectionDown(const SectionViewEx* child);
    bool IsFirstChildSection(const SectionViewEx* child) const;
    bool IsLastChildSection(const SectionViewEx* child) const;
    // The first child with that layout name; with deeper, each child's own children are searched
    // right after it, one level and no further.
    SectionViewExRef FindChildSection(const std::string& layoutName, bool deeper = false) const;
    std::vector<SectionViewExRef> FindChildSections(const std::string& layoutName, bool deeper = false) const;
    // The nearest ancestor that is a section; plain nodes between are passed over.
    SectionViewEx* GetParentSection() const;

    // Without a layout there is nothing to enable, and the content counts as disabled.
    void SetContentEnabled(bool enabled);
    bool IsContentEnabled() const;
    // An index past the end is ignored.
    void SetChildEnabled(std::size_t index, bool enabled);
    void SetAllChildrenEnabled(bool enabled);

    // The size that a parent stacks: open, the content with the header and border around it;
    // closed, the header at the width the section has now.
    fluxcore::geom::PointF GetSectionSize() const;

    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override;
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

protected:
    // The protocol every section follows; BuildSectionTree and ApplySettingsToTree run it in this
    // order. BindControls and WireControls run once, right after the layout is loaded.
    virtual void BindControls() {}
    virtual void WireControls() {}
    // Runs once, before any child is built: it may read the settings but none of its descendants.
    virtual void CreateChildSections() {}
    virtual void LoadFromSettings() {}
    virtual void ChildrenBuilt() {}
    // Offered each custom class name of the layout; null lets the builder make the adapter class.
    virtual fluxui::ui::UI_NodeRef CreateCustomControl(const Fnd::WString& className) { return {}; }

    // Lays the layout view and the children out top to bottom in the current rectangle.
    void PlaceChildSections();

private:
    // The walks of BuildSectionTree and ApplySettingsToTree, which run the protocol.
    friend class SectionTreeWalk;

    [[noreturn]] static void ThrowInvalidTypeConversion();
    // 1 when the draw policy leaves room for a border on each side, else 0.
    float BorderAllowance() const;
    bool IsContentViewShown() const { return contentView_ && contentView_->UI_IsShown(); }
    std::vector<SectionViewExRef>::const_iterator FindChild(const SectionViewEx* child) const;

    std::vector<SectionViewExRef> childSections_;
    fluxui::ui::UI_NodeRef contentView_;
    fluxcore::geom::PointF contentSize_;
    float childSpacing_ = 0.0f;
    bool built_ = false;
    const fluxui::utility::ResourceManager* resources_ = nullptr;
    fluxui::sketcher::SupplierInterface* supplier_ = nullptr;
    // CreateChildSections has run; a section built alone and again within its tree keeps one set.
    bool childrenCreated_ = false;
    std::string layoutName_;
    bool scrollBarShown_ = false;
    fluxui::ui::ControlsById controlsById_;
    // A section registers with the fold callbacks of the first parent it joins; the callback
    // follows it to any later parent.
    bool restacksParentOnFold_ = false;
};

} // namespace wrangler::ui
