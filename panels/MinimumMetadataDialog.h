#pragma once
#include <cstdint>
#include <vector>

#include "Fnd/Listener.h"
#include "PanelkitManager/PanelkitManager.h"
#include "QL/MetadataFieldSet.h"
#include "fluxui/ui/UI_Dialog.h"

namespace IGD {

// The window a modal minimum-metadata panel runs in, and the listener that reads its answer (the
// same object waits for a modeless panel's answer without being shown).
class MinimumMetadataDialog : public fluxui::ui::UI_Dialog, public Fnd::Listener {
public:
    MinimumMetadataDialog(std::int32_t stageID, Fnd::WString title, fluxui::sketcher::SupplierInterface* supplier,
                          fluxui::ui::OS_Window* parent, std::vector<Fnd::WString> filePaths,
                          PanelkitManager::IExtensionRef extension);
    ~MinimumMetadataDialog() override;
    const char* UI_GetClassName() const override { return "MinimumMetadataDialog"; }

    // Shows the stage's view and turns the modal loop until the panel ends or the window closes.
    int RunModal() override;
    bool UI_DoKeyboardEvent(fluxui::ui::UI_Node* target, const fluxui::ui::KeyboardEvent& event) override;
    bool UI_WantsKeyboardFocus() const override { return true; }
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    const QL::MinimumMetadataResult& GetResult() const { return result_; }
    bool IsCancelled() const { return cancelled_; }

protected:
    // Return belongs to the panel's fields: it must not close the dialog.
    bool OnReturnKey() override { return true; }

private:
    void OnStageEvent(std::int32_t code, std::int32_t stageID);
    void OnPanelbusEvent(const Fnd::WString& type, const Fnd::WString& data);
    void ReadAnswer(const Fnd::WString& data);

    std::int32_t stageID_;
    PanelkitManager::IStageRef stage_;
    fluxui::ui::UI_NodeRef stageView_;
    QL::MinimumMetadataResult result_;
    std::vector<Fnd::WString> filePaths_;
    bool cancelled_ = false;
    PanelkitManager::IExtensionRef extension_;
};

} // namespace IGD
