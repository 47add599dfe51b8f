#pragma once
// Small layouts written on the spot, and a section that records the protocol as it runs.
#include <string>
#include <vector>

#include "fluxcore/geom/Geometry.h"
#include "fluxui/utility/ResourceManager.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"
#include "transfer/SectionViewEx.h"

namespace igd::test {

enum class LayoutControlKind { StaticText, Checkbox };

struct LayoutControl {
    LayoutControlKind kind;
    std::string id;
    fluxcore::geom::RectF bounds;
};

// A layout archive whose root is a plain view of the given size holding the controls.
std::string LayoutXml(float width, float height, const std::vector<LayoutControl>& controls = {});

// Resources of a test: layouts added by name.
class TestResources : public fluxui::utility::ResourceManager {
public:
    void AddLayout(const std::string& name, float width, float height,
                   const std::vector<LayoutControl>& controls = {}) {
        AddResource("XML", name, LayoutXml(width, height, controls));
    }
};

// Writes "<name>.<step>" to a shared journal for each step of the protocol and each layout pass.
class RecordingSection : public wrangler::ui::SectionViewEx {
public:
    RecordingSection(std::string name, std::vector<std::string>& journal, const Fnd::WString& title = u"",
                     std::string layoutName = "")
        : SectionViewEx(title, std::move(layoutName)), name_(std::move(name)), journal_(journal) {}

    void UpdateSectionLayout() override {
        Note("Update");
        SectionViewEx::UpdateSectionLayout();
    }

protected:
    void BindControls() override { Note("Bind"); }
    void WireControls() override { Note("Wire"); }
    void CreateChildSections() override { Note("Create"); }
    void LoadFromSettings() override { Note("Load"); }
    void ChildrenBuilt() override { Note("ChildrenBuilt"); }
    void Note(const std::string& step) { journal_.push_back(name_ + "." + step); }

private:
    std::string name_;
    std::vector<std::string>& journal_;
};

} // namespace igd::test
