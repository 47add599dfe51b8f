// What the settings pane spends on its layouts when the dialog opens: every layout of the store
// read from the archive and built into nodes, the hint edits made by a factory as the sections do.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "shell/AutoHintTextEdit.h"
#include "shell/resources/ResourceStore.h"
#include "fluxui/ui/UI_Node.h"
#include "fluxui/ui/UI_NodeBuilder.h"
#include "fluxui/utility/OS_ResourceManager.h"

namespace {

fluxui::ui::UI_NodeRef MakeHintEdit(const Fnd::WString& className) {
    if (className == u"AutoHintTextEdit")
        return fluxui::ui::UI_NodeRef(new IGD::AutoHintTextEdit());
    return {};
}

void BM_BuildAllLayouts(benchmark::State& state) {
    fluxui::utility::OS_ResourceManager resources(&IGD::FindStoredResource);
    std::vector<std::string> names;
    for (std::string_view name : IGD::StoredResourceNames("XML"))
        names.emplace_back(name);
    std::size_t nodes = 0;
    for (auto _ : state) {
        for (const std::string& name : names) {
            fluxui::ui::ControlsById controls;
            fluxui::ui::UI_NodeRef root =
                fluxui::ui::UI_NodeBuilder::LoadViewFromXML(resources, nullptr, name, controls, MakeHintEdit);
            benchmark::DoNotOptimize(root.get());
            nodes += controls.size();
        }
    }
    state.counters["layouts"] = static_cast<double>(names.size());
    state.counters["ids/s"] = benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_BuildAllLayouts)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
