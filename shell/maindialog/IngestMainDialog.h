#pragma once
// The modal Ingest window: the media pane and the settings pane in a splitter, and the one handler
// that turns a press of Ingest into checks, the minimum-metadata panel and copy decisions.
#include <cstdint>

#include "Fnd/InterfaceRef.h"
#include "Fnd/Listener.h"
#include "IGD/IIngestDialogData.h"
#include "Proj/IProject.h"
#include "fluxcore/Guid.h"
#include "fluxui/ui/UI_Dialog.h"
#include "shell/maindialog/IngestSplitter.h"
#include "shell/mediapane/IngestTopView.h"
#include "shell/settingspane/IngestSettingView.h"

namespace IGD {

class IngestMainDialog : public fluxui::ui::UI_Dialog, public Fnd::Listener {
public:
    IngestMainDialog(Fnd::InterfaceRef<Proj::IProject> project, fluxui::sketcher::SupplierInterface* supplier,
                     fluxui::ui::OS_Window* parent, const fluxcore::geom::RectI& globalRect,
                     IngestDialogDataRef session);
    ~IngestMainDialog() override;
    const char* UI_GetClassName() const override { return "IngestMainDialog"; }

    // 0 until the copy decisions are taken; then 1 for an import in place, 2 for a copy.
    std::int32_t GetIngestResult() const { return ingestResult_; }
    // The platform window of the dialog constructed last, for native dialogs to parent to.
    static std::uintptr_t GetPlatformWindowOfLastDialog();

    bool UI_DoKeyboardEvent(fluxui::ui::UI_Node* target, const fluxui::ui::KeyboardEvent& event) override;
    bool UI_WantsKeyboardFocus() const override { return true; }
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    void DefaultCloseCancel() override;
    // The close box asks as Cancel does, once.
    void CloseByUser() override { DefaultCloseCancel(); }
    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    IngestTopView* GetTopView() const { return topView_.get(); }
    IngestSettingView* GetSettingView() const { return settingView_.get(); }
    IngestSplitter* GetSplitter() const { return splitter_.get(); }

private:
    void BuildContent();
    void OnImportMedia();
    void OnMinimumMetadataFinished(bool success, const QL::MinimumMetadataResult& result);

    Fnd::InterfaceRef<Proj::IProject> project_;
    Fnd::WString projectPath_;
    boost::intrusive_ptr<IngestTopView> topView_;
    boost::intrusive_ptr<IngestSettingView> settingView_;
    boost::intrusive_ptr<IngestSplitter> splitter_;
    IngestDialogDataRef session_;
    std::int32_t ingestResult_ = 0;
    std::uint8_t savedPreferenceFlag_ = 0;
    fluxcore::utility::Guid targetBinRequestOne_;
    fluxcore::utility::Guid targetBinRequestTwo_;
    boost::intrusive_ptr<fluxui::ui::UI_Dialog> metadataDialog_;
};

} // namespace IGD
