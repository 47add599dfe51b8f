#pragma once
// The left pane of the Ingest dialog: the media browser, the commands of the "ingestdialog"
// context routed to it, and the browser's preview player.
#include "AppFrame/Commander.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/Listener.h"
#include "IGD/IIngestDialogData.h"
#include "Proj/IProject.h"
#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_Dialog.h"
#include "fluxui/ui/UI_SubView.h"

namespace IGD {

class IngestTopView : public fluxui::ui::UI_SubView, public Fnd::Listener, public AppFrame::Commander {
public:
    // The supplier and the dialog are accepted and not kept. The view becomes the command target
    // and the provider of the browser's players.
    IngestTopView(fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::UI_Dialog* dialog,
                  AppFrame::Commander* parentCommander);
    ~IngestTopView() override;
    const char* UI_GetClassName() const override { return "IngestTopView"; }

    void CreateBrowser(Fnd::InterfaceRef<Proj::IProject> project);
    // Adds what the person ticked to the session.
    void Gather(IIngestDialogData& session);
    const Fnd::StationID& GetBrowserStation() const;
    // Null until CreateBrowser.
    fluxmediabrowser::MediaBrowserView* GetBrowser() const { return browser_.get(); }

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override {}

protected:
    bool QueryCommand(const AppFrame::Command& command, AppFrame::CommandStatus& status) override;
    bool ExecuteCommand(const AppFrame::Command& command) override;

private:
    fluxmediabrowser::MediaBrowserViewRef browser_;
};

} // namespace IGD
