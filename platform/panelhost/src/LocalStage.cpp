#include "LocalStage.h"

#include <boost/intrusive_ptr.hpp>

#include "Fnd/StationUtils.h"
#include "PanelAnswer.h"
#include "QL/PanelkitEvents.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace PanelkitManager {
namespace {

using fluxcore::geom::RectF;
using namespace fluxui::controls;

constexpr float kMargin = 12.0f;
constexpr float kLabelWidth = 110.0f;
constexpr float kRowHeight = 22.0f;
constexpr float kRowPitch = 30.0f;
constexpr float kButtonWidth = 80.0f;
constexpr float kButtonHeight = 24.0f;

template <class Control> boost::intrusive_ptr<Control> Add(fluxui::ui::UI_Node& parent, std::string id, RectF rect) {
    boost::intrusive_ptr<Control> control(new Control());
    control->UI_SetNodeID(std::move(id));
    control->UI_SetLocalRectF(rect);
    parent.ChildPushBack(control);
    return control;
}

void Post(const Fnd::Message& message) {
    Fnd::StationUtils::PostMessageToUIThread(QL::GetPanelkitStationID(), message, false);
}

} // namespace

LocalStage::LocalStage(std::int32_t id, std::shared_ptr<const PanelDescription> panel, bool parked)
    : id_(id), panel_(std::move(panel)), running_(!parked) {}

Fnd::WString LocalStage::GetTitle() const {
    return panel_->title.empty() ? Fnd::FromUTF8(panel_->id) : panel_->title;
}

fluxui::ui::UI_NodeRef LocalStage::CreateView(const fluxcore::geom::RectI& rect) {
    const float width = static_cast<float>(rect.width);
    const float height = static_cast<float>(rect.height);
    fluxui::ui::UI_NodeRef view(new fluxui::ui::UI_SubView());
    view->UI_SetNodeID("panel." + panel_->id);
    view->UI_SetLocalRectF(RectF{static_cast<float>(rect.left), static_cast<float>(rect.top), width, height});

    const float fieldLeft = kMargin + kLabelWidth + 8.0f;
    const float fieldWidth = std::max(40.0f, width - fieldLeft - kMargin);
    float top = kMargin;
    for (const PanelField& field : panel_->fields) {
        const Fnd::WString label = field.required ? field.label + u" *" : field.label;
        if (field.kind == FieldKind::Checkbox) {
            auto box = Add<UI_Checkbox>(*view, "field." + field.key, {fieldLeft, top, fieldWidth, kRowHeight});
            box->SetText(label);
        } else {
            auto text = Add<UI_StaticText>(*view, "label." + field.key, {kMargin, top + 3.0f, kLabelWidth, kRowHeight});
            text->SetValue(label);
            auto edit = Add<UI_TextEdit>(*view, "field." + field.key, {fieldLeft, top, fieldWidth, kRowHeight});
            if (field.kind == FieldKind::Keywords)
                edit->UI_SetToolTip(fluxcore::Localize("$$$/IGD/Panelkit/KeywordsHint=Separate keywords with commas"));
        }
        top += kRowPitch;
    }
    auto applyAll = Add<UI_Checkbox>(*view, "applyToAllDestinations", {fieldLeft, top, fieldWidth, kRowHeight});
    applyAll->SetText(fluxcore::Localize("$$$/IGD/Panelkit/ApplyToAll=Apply to all destinations"));
    applyAll->SetChecked(panel_->applyToAllDestinations);

    const float buttonTop = std::max(top + kRowPitch, height - kMargin - kButtonHeight);
    auto cancel = Add<UI_TextButton>(*view, "cancel",
                                     {width - kMargin - 2 * kButtonWidth - 8.0f, buttonTop, kButtonWidth, kButtonHeight});
    cancel->SetText(fluxcore::Localize("$$$/IGD/Panelkit/Cancel=Cancel"));
    auto ok = Add<UI_TextButton>(*view, "ok", {width - kMargin - kButtonWidth, buttonTop, kButtonWidth, kButtonHeight});
    ok->SetText(fluxcore::Localize("$$$/IGD/Panelkit/OK=OK"));
    ok->SetDefaultAppearance(true);

    // The buttons hold the stage, never the other way round: a dropped view frees its form.
    const boost::intrusive_ptr<LocalStage> self(this);
    fluxui::ui::UI_Node* root = view.get();
    ok->NotifyWhenChanged([self, root](const UI_ControlMessage&) { self->Ok(*root); });
    cancel->NotifyWhenChanged([self](const UI_ControlMessage&) { self->Cancel(); });
    return view;
}

void LocalStage::Ok(fluxui::ui::UI_Node& view) {
    if (!running_)
        return;
    std::vector<Fnd::WString> values;
    values.reserve(panel_->fields.size());
    for (const PanelField& field : panel_->fields) {
        fluxui::ui::UI_Node* node = view.UI_FindNodeByID("field." + field.key);
        if (auto* box = dynamic_cast<UI_Checkbox*>(node)) {
            values.emplace_back(box->IsChecked() ? u"true" : u"false");
            continue;
        }
        auto* edit = dynamic_cast<UI_TextEdit*>(node);
        values.push_back(edit ? Fnd::Trim(edit->GetValue(), u" \t\r\n") : Fnd::WString());
        if (field.required && values.back().empty()) {
            fluxui::dialogs::messagebox::Messagebox(
                GetTitle(), fluxcore::Localize("$$$/IGD/Panelkit/RequiredField=Please fill in @0.", {field.label}));
            if (edit)
                edit->UI_GainKeyboardFocus();
            return;
        }
    }
    const auto* applyAll = dynamic_cast<UI_Checkbox*>(view.UI_FindNodeByID("applyToAllDestinations"));
    Finish(WriteMinimumMetadataAnswer(*panel_, values, applyAll && applyAll->IsChecked()));
}

void LocalStage::Cancel() {
    if (running_)
        Finish(WriteStatusAnswer(u"Cancel"));
}

void LocalStage::Finish(Fnd::WString answer) {
    running_ = false;
    Post(QL::PanelbusEvent(Event::GetPanelkitEventTypeMinimumMetadata(), std::move(answer)));
    Post(QL::StageEvent(QL::kStageEventClosed, id_));
}

} // namespace PanelkitManager
