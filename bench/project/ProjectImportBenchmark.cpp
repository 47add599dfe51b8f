// The project store at the size of a large shoot: 100,000 items, each with a sidecar and a
// metadata set of three values, over four bins, imported in one batch into a new project on a
// real disk; then listed back whole, and, for the per-item path a scheduler may take, single
// imports that are each their own durable transaction.
#include <benchmark/benchmark.h>

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Proj/Project.h"

namespace {

constexpr int kItems = 100000;

// A fresh folder beside the other temporaries, on the disk the tests use.
class ScratchFolder {
public:
    ScratchFolder() {
        const char* tmp = std::getenv("TMPDIR");
        std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/igd-bench-project-XXXXXX";
        path_ = ::mkdtemp(pattern.data()) ? pattern : throw std::runtime_error("mkdtemp " + pattern);
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_); }
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

Proj::ProjectItem ShootItem(int i) {
    const Fnd::WString number = Fnd::ToDecimal(static_cast<std::uint64_t>(i));
    Proj::ProjectItem item;
    item.path = u"/media/shoot/card" + Fnd::ToDecimal(static_cast<std::uint64_t>(i / 1000)) + u"/C" + number +
                u".MXF";
    item.name = u"C" + number;
    item.format = u"MXF";
    item.extraPaths = {item.path.substr(0, item.path.size() - 4) + u".xmp"};
    item.inPoint = 0;
    item.outPoint = 254016000000LL * 10;
    item.frameRate = 10594584000;
    item.clipGuid = fluxcore::utility::Guid::CreateUnique();
    item.metadata = {{u"http://ns.example.com/igd/shoot/1.0/",
                      "shoot",
                      {{u"scene", Fnd::ToDecimal(static_cast<std::uint64_t>(i / 50))},
                       {u"take", Fnd::ToDecimal(static_cast<std::uint64_t>(i % 50))},
                       {u"camera", u"A"}}}};
    item.bin = u"Day " + Fnd::ToDecimal(static_cast<std::uint64_t>(i % 4));
    return item;
}

std::vector<Proj::ProjectItem> Shoot(int count) {
    std::vector<Proj::ProjectItem> items;
    items.reserve(count);
    for (int i = 0; i < count; ++i)
        items.push_back(ShootItem(i));
    return items;
}

void BM_ImportBatchIntoNewProject(benchmark::State& state) {
    const std::vector<Proj::ProjectItem> items = Shoot(kItems);
    for (auto _ : state) {
        ScratchFolder folder;
        auto project = Proj::Project::Open(folder.Path() + "/p.igdproj");
        benchmark::DoNotOptimize(project->ImportItems(items));
    }
    state.counters["items/s"] =
        benchmark::Counter(static_cast<double>(kItems) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ImportBatchIntoNewProject)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_ReimportBatchOverExistingItems(benchmark::State& state) {
    const std::vector<Proj::ProjectItem> items = Shoot(kItems);
    ScratchFolder folder;
    auto project = Proj::Project::Open(folder.Path() + "/p.igdproj");
    project->ImportItems(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(project->ImportItems(items));
    state.counters["items/s"] =
        benchmark::Counter(static_cast<double>(kItems) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ReimportBatchOverExistingItems)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_ListAllItems(benchmark::State& state) {
    ScratchFolder folder;
    auto project = Proj::Project::Open(folder.Path() + "/p.igdproj");
    project->ImportItems(Shoot(kItems));
    for (auto _ : state)
        benchmark::DoNotOptimize(project->Items());
    state.counters["items/s"] =
        benchmark::Counter(static_cast<double>(kItems) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ListAllItems)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ImportOneItemPerTransaction(benchmark::State& state) {
    ScratchFolder folder;
    auto project = Proj::Project::Open(folder.Path() + "/p.igdproj");
    int i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(project->ImportItem(ShootItem(i++)));
}
BENCHMARK(BM_ImportOneItemPerTransaction)->Unit(benchmark::kMicrosecond)->Iterations(1000);

} // namespace

BENCHMARK_MAIN();
