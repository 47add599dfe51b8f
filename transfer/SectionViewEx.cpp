#include "transfer/SectionViewEx.h"

#include <algorithm>
#include <stdexcept>

#include "fluxcore/ConfigError.h"
#include "AppFrame/ColorManager.h"
#include "fluxui/utils/DrawOutline.h"
#include "transfer/SectionTree.h"

namespace wrangler::ui {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;

namespace {

// Policies that draw no border leave no room for one.
constexpr unsigned kBorderlessPolicyBits = 1u | 4u;
// Room under the last item of a titled section, so that the outline does not touch it.
constexpr float kTitledBottomMargin = 5.0f;

} // namespace

SectionViewEx::SectionViewEx(const Fnd::WString& title, std::string layoutName)
    : UI_SectionView(title), layoutName_(std::move(layoutName)) {
    if (title.empty()) {
        SetHeaderHeight(0.0f);
        SetShowBorder(false);
        SetUserOpenable(false);
    }
}

void SectionViewEx::Build(const fluxui::utility::ResourceManager& resources,
                          fluxui::sketcher::SupplierInterface* supplier) {
    if (built_)
        return;
    if (!layoutName_.empty()) {
        const fluxui::ui::UI_NodeRef view = fluxui::ui::UI_NodeBuilder::LoadViewFromXML(
            resources, supplier, layoutName_, controlsById_,
            [this](const Fnd::WString& className) { return CreateCustomControl(className); });
        if (view) {
            const RectF layoutRect = view->UI_GetLocalRectF();
            contentSize_ = layoutRect.Size();
            // The section keeps its place; a parent that already placed it places it again later.
            RectF own = UI_GetLocalRectF(true);
            own.width = layoutRect.width;
            own.height = layoutRect.height;
            UI_SetLocalRectF(own);
            fluxui::ui::UI_SubView& content = GetContentView();
            RectF contentRect = content.UI_GetLocalRectF(true);
            contentRect.width = layoutRect.width;
            contentRect.height = layoutRect.height;
            content.UI_SetLocalRectF(contentRect);
            // First in the content view, before any child inserted earlier: the focus moves
            // through the section's own controls before those of its children.
            content.ChildInsert(0, view);
            contentView_ = view;
        }
    }
    resources_ = &resources;
    supplier_ = supplier;
    BindControls();
    WireControls();
    built_ = true;
}

void SectionViewEx::BuildAddedSection(SectionViewEx& section) const {
    if (!built_)
        throw std::logic_error("BuildAddedSection: the section is not built yet");
    BuildSectionTree(section, *resources_, supplier_);
}

void SectionViewEx::SetScrollBarShown(bool shown) {
    if (shown == scrollBarShown_)
        return;
    scrollBarShown_ = shown;
    NotifyObserver(fluxui::ui::NodeChange::Appearance);
}

fluxui::ui::UI_NodeRef SectionViewEx::FindControl(const std::string& id) const {
    const auto found = controlsById_.find(id);
    return found == controlsById_.end() ? fluxui::ui::UI_NodeRef() : found->second;
}

void SectionViewEx::ThrowInvalidTypeConversion() {
    fluxcore::config::ThrowError("$$$/fluxcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
}

std::vector<SectionViewExRef>::const_iterator SectionViewEx::FindChild(const SectionViewEx* child) const {
    return std::find_if(childSections_.begin(), childSections_.end(),
                        [child](const SectionViewExRef& each) { return each.get() == child; });
}

void SectionViewEx::InsertChildSection(const SectionViewExRef& child, const SectionViewEx* before) {
    if (!child)
        throw std::invalid_argument("InsertChildSection: a null section");
    const std::ptrdiff_t index = before ? FindChild(before) - childSections_.begin()
                                        : static_cast<std::ptrdiff_t>(childSections_.size());
    fluxui::ui::UI_SubView& content = GetContentView();
    // The node tree first: it refuses a section that has a parent already, and then nothing changed.
    if (before)
        content.ChildInsert(static_cast<std::size_t>(content.ChildFind(before) - content.ChildBegin()),
                            child);
    else
        content.ChildPushBack(child);
    childSections_.insert(childSections_.begin() + index, child);
    if (!child->restacksParentOnFold_) {
        // Bound to the child rather than to this section: the child may outlive this parent or move
        // to another, and the toolkit keeps fold callbacks for the section's whole life.
        SectionViewEx* folding = child.get();
        folding->AddOpenedStateChangedCallback([folding](bool) {
            if (SectionViewEx* parent = folding->GetParentSection())
                parent->UpdateSectionLayout();
        });
        folding->restacksParentOnFold_ = true;
    }
}

bool SectionViewEx::RemoveChildSection(const SectionViewEx* child, bool skipLayout) {
    const auto found = FindChild(child);
    if (found == childSections_.end())
        return false;
    const SectionViewExRef keepAlive = *found;
    GetContentView().ChildRemove(child);
    childSections_.erase(found);
    if (!skipLayout)
        UpdateSectionLayout();
    return true;
}

void SectionViewEx::RemoveAllChildSections() {
    while (!childSections_.empty())
        RemoveChildSection(childSections_.front().get(), true);
    UpdateSectionLayout();
}

bool SectionViewEx::MoveChildSectionUp(const SectionViewEx* child) {
    const auto found = FindChild(child);
    if (found == childSections_.end() || found == childSections_.begin())
        return false;
    const SectionViewExRef moving = *found;
    const SectionViewExRef above = *(found - 1);
    RemoveChildSection(child, true);
    InsertChildSection(moving, above.get());
    PlaceChildSections();
    return true;
}

bool SectionViewEx::MoveChildSectionDown(const SectionViewEx* child) {
    const auto found = FindChild(child);
    if (found == childSections_.end() || found + 1 == childSections_.end())
        return false;
    return MoveChildSectionUp((found + 1)->get());
}

bool SectionViewEx::IsFirstChildSection(const SectionViewEx* child) const {
    return !childSections_.empty() && childSections_.front().get() == child;
}

bool SectionViewEx::IsLastChildSection(const SectionViewEx* child) const {
    return !childSections_.empty() && childSections_.back().get() == child;
}

SectionViewExRef SectionViewEx::FindChildSection(const std::string& layoutName, bool deeper) const {
    for (const SectionViewExRef& child : childSections_) {
        if (child->layoutName_ == layoutName)
            return child;
        if (deeper)
            for (const SectionViewExRef& grandchild : child->childSections_)
                if (grandchild->layoutName_ == layoutName)
                    return grandchild;
    }
    return {};
}

std::vector<SectionViewExRef> SectionViewEx::FindChildSections(const std::string& layoutName,
                                                               bool deeper) const {
    std::vector<SectionViewExRef> found;
    for (const SectionViewExRef& child : childSections_) {
        if (child->layoutName_ == layoutName)
            found.push_back(child);
        if (deeper)
            for (const SectionViewExRef& grandchild : child->childSections_)
                if (grandchild->layoutName_ == layoutName)
                    found.push_back(grandchild);
    }
    return found;
}

SectionViewEx* SectionViewEx::GetParentSection() const {
    for (fluxui::ui::UI_Node* node = UI_GetParentNode(); node; node = node->UI_GetParentNode())
        if (auto* section = dynamic_cast<SectionViewEx*>(node))
            return section;
    return nullptr;
}

void SectionViewEx::SetContentEnabled(bool enabled) {
    if (contentView_)
        contentView_->UI_SetDisabled(!enabled);
}

bool SectionViewEx::IsContentEnabled() const {
    return contentView_ && contentView_->UI_IsEnabled();
}

void SectionViewEx::SetChildEnabled(std::size_t index, bool enabled) {
    if (index < childSections_.size())
        childSections_[index]->UI_SetDisabled(!enabled);
}

void SectionViewEx::SetAllChildrenEnabled(bool enabled) {
    for (const SectionViewExRef& child : childSections_)
        child->UI_SetDisabled(!enabled);
}

float SectionViewEx::BorderAllowance() const {
    return (static_cast<unsigned>(GetDrawPolicy()) & kBorderlessPolicyBits) != 0 ? 0.0f : 1.0f;
}

PointF SectionViewEx::GetSectionSize() const {
    const float header = GetHeaderHeight();
    if (!GetOpened())
        return {UI_GetLocalRectF().width, header};
    PointF size = contentSize_;
    if (header != 0.0f) {
        const float border = BorderAllowance();
        size.x += 2.0f * border;
        size.y += header + border - 1.0f;
    }
    return size;
}

void SectionViewEx::UpdateSectionLayout() {
    float width = 0.0f;
    float height = 0.0f;
    if (IsContentViewShown()) {
        const RectF content = contentView_->UI_GetLocalRectF();
        width = content.width;
        height = content.height + childSpacing_;
    }
    for (const SectionViewExRef& child : childSections_) {
        if (child->UI_IsHidden())
            continue;
        const PointF size = child->GetSectionSize();
        width = std::max(width, size.x);
        height += childSpacing_ + size.y;
    }
    if (height > 0.0f)
        height -= childSpacing_;
    const float header = GetHeaderHeight();
    if (header != 0.0f)
        height += kTitledBottomMargin;
    contentSize_ = {width, height};

    RectF rect = UI_GetLocalRectF(true);
    if (rect.width == 0.0f)
        rect.width = contentSize_.x;
    rect.height = contentSize_.y;
    if (header != 0.0f)
        rect.height += header + BorderAllowance() - 1.0f;
    UI_SetLocalRectF(rect);
    PlaceChildSections();

    if (SectionViewEx* parent = GetParentSection())
        parent->UpdateSectionLayout();

    // The toolkit sizes a section as its header plus its content view (the header alone when
    // closed), so the content view takes the measured height first. The parent may have moved
    // this section meanwhile: its rectangle is read again.
    const RectF placed = UI_GetLocalRectF(true);
    fluxui::ui::UI_SubView& content = GetContentView();
    RectF contentRect = content.UI_GetLocalRectF(true);
    contentRect.height = std::max(0.0f, rect.height - header);
    content.UI_SetLocalRectF(contentRect);
    UpdateSize(placed);
}

void SectionViewEx::PlaceChildSections() {
    const RectF rect = UI_GetLocalRectF();
    if (rect.width <= 0.0f || rect.height <= 0.0f)
        return;
    float y = 0.0f;
    if (IsContentViewShown()) {
        const RectF content = contentView_->UI_GetLocalRectF(true);
        contentView_->UI_SetLocalRectF({0.0f, content.top, rect.width, content.height});
        y = content.height + childSpacing_;
    }
    for (const SectionViewExRef& child : childSections_) {
        if (child->UI_IsHidden())
            continue;
        const float height = child->GetSectionSize().y;
        child->UI_SetLocalRectF({0.0f, y, rect.width, height});
        y += height + childSpacing_;
    }
}

void SectionViewEx::UI_Draw(fluxui::sketcher::Sketcher& sketcher) {
    UI_SectionView::UI_Draw(sketcher);
    if (GetTitle().empty())
        return;
    RectF outline = UI_GetLocalRectF().Offset(UI_LocalToGlobal({}));
    // Beside a scroll bar the outline reaches under it, so no gap shows between the two.
    if (scrollBarShown_)
        outline.width += 1.0f;
    fluxui::utils::DrawOutline(sketcher, outline, fluxui::ui::GetColor(AppFrame::kColor_SectionOutline),
                               1.0f);
}

void SectionViewEx::UI_SizeChanged(const RectF& localRect) {
    UI_SectionView::UI_SizeChanged(localRect);
    PlaceChildSections();
}

} // namespace wrangler::ui
