#include "panels/MinimumMetadataDialog.h"

#include <chrono>
#include <thread>

#include "Fnd/StationUtils.h"
#include "QL/PanelkitEvents.h"
#include "panels/MinimumMetadataAnswer.h"
#include "panels/MinimumMetadataFinished.h"

namespace IGD {
namespace {

constexpr fluxcore::geom::PointI kInitialSize{490, 300};
// The loop shares the thread with the panel host; the pause keeps it from spinning.
constexpr auto kTurnPause = std::chrono::milliseconds(10);
// A panel that ended has usually posted its answer or its close as it ended; these turns let them
// through before the window goes away.
constexpr int kTurnsAfterPanelEnded = 10;

fluxcore::geom::RectI OriginBounds(const PanelkitManager::IStage& stage) {
    fluxcore::geom::RectI bounds = stage.GetBounds();
    bounds.left = 0;
    bounds.top = 0;
    return bounds;
}

fluxcore::geom::RectF ToRectF(const fluxcore::geom::RectI& rect) {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.width),
            static_cast<float>(rect.height)};
}

} // namespace

MinimumMetadataDialog::MinimumMetadataDialog(std::int32_t stageID, Fnd::WString title,
                                             fluxui::sketcher::SupplierInterface* supplier,
                                             fluxui::ui::OS_Window* parent, std::vector<Fnd::WString> filePaths,
                                             PanelkitManager::IExtensionRef extension)
    : fluxui::ui::UI_Dialog(supplier, std::move(title), {1, 1}, parent), stageID_(stageID),
      stage_(PanelkitManager::GetStage(stageID)), filePaths_(std::move(filePaths)), extension_(std::move(extension)) {
    SetContentSize(kInitialSize);
    if (stage_) {
        const fluxcore::geom::RectI bounds = stage_->GetBounds();
        SetContentSize({bounds.width, bounds.height});
    }
    Fnd::StationUtils::AddListener(QL::GetPanelkitStationID(), this);
    SetPostCloseCallback([this](int response) {
        if (response != fluxui::ui::kDialogResponseOK)
            cancelled_ = true;
    });
    UI_SetNodeID("PanelkitModalDialog");
    Position();
}

MinimumMetadataDialog::~MinimumMetadataDialog() {
    Fnd::StationUtils::RemoveListener(QL::GetPanelkitStationID(), this);
    extension_.reset();
    filePaths_.clear();
    result_ = {};
    stageView_.reset();
    stage_.reset();
}

int MinimumMetadataDialog::RunModal() {
    if (!stage_)
        return GetResponse();
    const fluxcore::geom::RectI bounds = OriginBounds(*stage_);
    SetContentSize({bounds.width, bounds.height});

    BeginModal();
    SetTitle(stage_->GetTitle());
    stage_->SetDisplayMode(2);
    stageView_ = stage_->CreateView(bounds);
    ChildPushBack(stageView_);
    stageView_->UI_SetLocalRectF(ToRectF(bounds));
    stageView_->UI_Show(true);
    stageView_->UI_GainKeyboardFocus();
    PanelkitManager::UnparkStage(stageID_);

    int turnsAfterEnd = 0;
    while (!IsCloseRequested() && turnsAfterEnd <= kTurnsAfterPanelEnded) {
        if (stage_->GetRunState() == 0)
            ++turnsAfterEnd;
        ModalDuring();
        if (!IsCloseRequested())
            std::this_thread::sleep_for(kTurnPause);
    }

    EndModal();
    ChildRemove(stageView_.get());
    stageView_.reset();

    if (!stage_->IsClosed()) {
        const std::int32_t id = stage_->GetStageID();
        if (PanelkitManager::IExtensionRef extension = PanelkitManager::GetExtensionByID(stage_->GetExtensionID())) {
            if (extension->GetStageID() == id)
                extension->ReleaseStage();
            PanelkitManager::UnloadStage(id);
            extension->PrepareStage(false);
        } else {
            PanelkitManager::UnloadStage(id);
        }
    }
    RunPostCloseCallback(GetResponse());
    return GetResponse();
}

bool MinimumMetadataDialog::UI_DoKeyboardEvent(fluxui::ui::UI_Node* target, const fluxui::ui::KeyboardEvent& event) {
    return fluxui::ui::UI_Dialog::UI_DoKeyboardEvent(target, event);
}

void MinimumMetadataDialog::UI_SizeChanged(const fluxcore::geom::RectF& localRect) {
    fluxui::ui::UI_Dialog::UI_SizeChanged(localRect);
    if (stageView_)
        stageView_->UI_SetLocalRectF({0, 0, localRect.width, localRect.height});
}

void MinimumMetadataDialog::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* stage = Fnd::MessageCast<QL::StageEvent>(message))
        OnStageEvent(stage->eventCode, stage->stageID);
    else if (const auto* bus = Fnd::MessageCast<QL::PanelbusEvent>(message))
        OnPanelbusEvent(bus->eventType, bus->eventData);
}

void MinimumMetadataDialog::OnStageEvent(std::int32_t code, std::int32_t stageID) {
    if (stageID != stageID_)
        return;
    switch (code) {
    case QL::kStageEventClosed:
        if (stage_ && !stage_->IsClosed()) {
            PanelkitManager::ParkStage(stage_->GetStageID());
            PostClose();
        }
        break;
    case QL::kStageEventBoundsChanged:
        if (stageView_ && stage_) {
            const fluxcore::geom::RectI bounds = OriginBounds(*stage_);
            if (stageView_->UI_GetLocalRectF(true) != ToRectF(bounds)) {
                stageView_->UI_SetLocalRectF(ToRectF(bounds));
                SetContentSize({bounds.width, bounds.height});
            }
        }
        break;
    case QL::kStageEventTitleChanged:
        if (stage_)
            SetTitle(stage_->GetTitle());
        break;
    default:
        break;
    }
}

void MinimumMetadataDialog::OnPanelbusEvent(const Fnd::WString& type, const Fnd::WString& data) {
    if (type == PanelkitManager::Event::GetPanelkitEventTypeMinimumMetadata()) {
        ReadAnswer(data);
        return;
    }
    // A modeless panel that goes away will not answer: the main dialog must not wait for it.
    if (type == PanelkitManager::Event::GetPanelkitEventTypeExtensionUnloaded() && extension_ &&
        extension_->IsModeless() && data.find(Fnd::FromUTF8(extension_->GetExtensionID())) != Fnd::WString::npos) {
        PostMinimumMetadataFinished(false, result_);
        extension_.reset();
    }
}

void MinimumMetadataDialog::ReadAnswer(const Fnd::WString& data) {
    if (!IsMinimumMetadataAnswerOK(data)) {
        PostMinimumMetadataFinished(false, result_);
        extension_.reset();
        if (stageID_ != PanelkitManager::kNoStage)
            DefaultCloseCancel();
        return;
    }
    ReadMinimumMetadataAnswer(data, result_);
    PostMinimumMetadataFinished(true, result_);
    extension_.reset();
    if (stageID_ != PanelkitManager::kNoStage)
        DefaultCloseOk();
}

} // namespace IGD
