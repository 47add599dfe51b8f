#pragma once
#include <functional>
#include <memory>
#include <vector>

#include "fluxui/ui/UI_SubView.h"

namespace fluxui::controls {

// The values are bits, so that a section can tell from the policy whether a border takes room:
// 1 leaves the border out, 4 leaves out the whole frame (header fill and border).
enum class SectionDrawPolicy : unsigned { HeaderAndBorder = 0, HeaderOnly = 1, Nothing = 4 };

using OpenedStateChangedFunction = std::function<void(bool opened)>;
using OpenedStateChangedFunctionPtr = std::shared_ptr<OpenedStateChangedFunction>;

// A titled header above a content view that opens and closes. A custom label view may stand in
// the header beside the title. Closed, the section is as tall as its header.
class UI_SectionView : public ui::UI_SubView {
public:
    explicit UI_SectionView(Fnd::WString title, bool opened = true);
    const char* UI_GetClassName() const override { return "UI_SectionView"; }

    const Fnd::WString& GetTitle() const { return title_; }
    void SetTitle(const Fnd::WString& title);
    ui::UI_SubView& GetContentView() const { return *content_; }
    ui::UI_SubView& GetCustomLabelView() const { return *customLabel_; }
    void SetShowCustomLabelView(bool show) { customLabel_->UI_Show(show); }
    float GetHeaderHeight() const { return headerHeight_; }
    void SetHeaderHeight(float height);
    SectionDrawPolicy GetDrawPolicy() const { return drawPolicy_; }
    void SetDrawPolicy(SectionDrawPolicy policy);

    bool GetOpened() const { return opened_; }
    // A change of state calls the opened-state callbacks, in the order added.
    void SetOpened(bool opened);
    void SetUserOpenable(bool openable) { userOpenable_ = openable; }
    bool GetUserOpenable() const { return userOpenable_; }
    // The person clicked the header; nothing happens unless the section is user-openable.
    void ToggleByUser();
    void SetShowBorder(bool show);
    bool GetShowBorder() const { return showBorder_; }
    void AddOpenedStateChangedCallback(OpenedStateChangedFunctionPtr function);
    void AddOpenedStateChangedCallback(OpenedStateChangedFunction function) {
        AddOpenedStateChangedCallback(std::make_shared<OpenedStateChangedFunction>(std::move(function)));
    }

    // Sizes the section for its state: the header, and the content's height when opened.
    // rect gives the place and width.
    void UpdateSize(const fluxcore::geom::RectF& rect);

    void UI_Draw(sketcher::Sketcher& sketcher) override;
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

    static constexpr float kDefaultHeaderHeight = 24.0f;

private:
    void PlaceParts();

    Fnd::WString title_;
    bool opened_;
    bool userOpenable_ = true;
    bool showBorder_ = true;
    float headerHeight_ = kDefaultHeaderHeight;
    SectionDrawPolicy drawPolicy_ = SectionDrawPolicy::HeaderAndBorder;
    boost::intrusive_ptr<ui::UI_SubView> content_;
    boost::intrusive_ptr<ui::UI_SubView> customLabel_;
    std::vector<OpenedStateChangedFunctionPtr> callbacks_;
};

} // namespace fluxui::controls
