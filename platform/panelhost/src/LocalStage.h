#pragma once
// The stage a local panel runs in: the form as a toolkit view whose OK and Cancel answer on the
// panel bus.
#include <memory>

#include "PanelDescription.h"
#include "PanelkitManager/PanelkitManager.h"

namespace PanelkitManager {

class LocalStage : public IStage, public fluxcore::utility::RefCountedObject {
public:
    LocalStage(std::int32_t id, std::shared_ptr<const PanelDescription> panel, bool parked);

    std::int32_t GetStageID() const override { return id_; }
    Fnd::WString GetTitle() const override;
    std::string GetExtensionID() const override { return panel_->id; }
    fluxcore::geom::RectI GetBounds() const override { return {0, 0, panel_->width, panel_->height}; }
    bool IsClosed() const override { return closed_; }
    void SetDisplayMode(int mode) override { displayMode_ = mode; }
    fluxui::ui::UI_NodeRef CreateView(const fluxcore::geom::RectI& rect) override;
    int GetRunState() const override { return running_ ? 1 : 0; }

    void Park() { running_ = false; }
    void Unpark() {
        if (!closed_)
            running_ = true;
    }
    void Close() {
        closed_ = true;
        running_ = false;
    }

private:
    void Ok(fluxui::ui::UI_Node& view);
    void Cancel();
    // The panel's answer is out: the run ends and listeners hear the stage close.
    void Finish(Fnd::WString answer);

    std::int32_t id_;
    std::shared_ptr<const PanelDescription> panel_;
    bool running_;
    bool closed_ = false;
    int displayMode_ = 0;
};

} // namespace PanelkitManager
