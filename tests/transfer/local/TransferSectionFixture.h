#pragma once
// A transfer section opened as the settings pane opens it, over a controller of the test's own
// and a scripted folder chooser.
#include <gtest/gtest.h>

#include "IGD/LayoutPreview.h"
#include "fluxui/controls/UI_Popup.h"
#include "support/ScriptedInteractionDriver.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"

namespace igd::test {

class TransferSectionFixture : public SettingsFixture {
protected:
    TransferSectionFixture() { controller.SetSettingsChangedCallback([this] { ++notifications; }); }
    ~TransferSectionFixture() override { root.reset(); }

    // The controller outlives the sections: the test owns it.
    std::shared_ptr<IngestSettingsController> Shared() {
        return std::shared_ptr<IngestSettingsController>(std::shared_ptr<void>(), &controller);
    }
    template <typename Section> Section& Open(Section* section) {
        root = section;
        section->UI_SetLocalRectF({0, 0, 320, 900});
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    static std::vector<Fnd::WString> Rows(const fluxui::controls::UI_Popup& popup) {
        std::vector<Fnd::WString> rows;
        for (const auto& item : popup.GetItems())
            rows.push_back(item.text);
        return rows;
    }

    ScopedInteractionDriver ui;
    wrangler::ui::SectionViewExRef root;
    int notifications = 0;
};

} // namespace igd::test
