// The plan over a large card: copy decisions plus RunIngestPlan for 100,000 clips, each with one
// sidecar, to 3 destinations, on a real temporary tree. Its cost should be the existence tests it
// makes, so the same run measures the floor: one stat() per path the plan tests.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "QL/TaskFactory.h"
#include "pipeline/plan/CopyDecisions.h"
#include "pipeline/session/IngestDialogData.h"
#include "pipeline/plan/IngestPlan.h"

namespace {

constexpr int kClips = 100000;
constexpr int kClipsPerFolder = 1000;
constexpr int kDestinations = 3;

// Keeps nothing: the benchmark measures the plan, not a service.
class DiscardingTaskService : public QL::IngestTask::ITaskService {
public:
    void SubmitCopyTask(const QL::IngestTask::CopySetting& s, const fluxcore::utility::Guid&,
                        const QL::IngestCustomData&) override {
        units += s.units.size();
    }
    void SubmitTranscodeTask(const QL::IngestTask::TranscodeSetting&, const fluxcore::utility::Guid&,
                             const QL::IngestCustomData&) override {}
    void SubmitConcatenateTask(const QL::IngestTask::TranscodeSetting&, const fluxcore::utility::Guid&,
                               const QL::IngestCustomData&) override {}
    void SubmitImportTask(const QL::IngestTask::ImportSetting&, const fluxcore::utility::Guid&,
                          const QL::IngestCustomData&) override {}
    void SubmitUpdateMetadataTask(const QL::IngestTask::UpdateMetadataSetting&,
                                  const fluxcore::utility::Guid&, const QL::IngestCustomData&) override {}
    bool IsPathInCopyList(const Fnd::WString&) const override { return false; }
    std::size_t units = 0;
};

std::string ClipName(int i) {
    char name[32];
    std::snprintf(name, sizeof name, "d%03d/C%06d", i / kClipsPerFolder, i);
    return name;
}

// The card and the empty destinations, made once for the whole run.
struct Card {
    std::string root;
    std::vector<std::string> destinations;

    Card() {
        const char* tmp = std::getenv("TMPDIR");
        std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/igd-bench-plan.XXXXXX";
        root = mkdtemp(pattern.data());
        for (int i = 0; i < kClips; ++i) {
            const std::string base = root + "/card/" + ClipName(i);
            if (i % kClipsPerFolder == 0)
                std::filesystem::create_directories(std::filesystem::path(base).parent_path());
            for (const char* extension : {".MOV", ".xmp"})
                close(open((base + extension).c_str(), O_CREAT | O_WRONLY, 0644));
        }
        for (int d = 0; d < kDestinations; ++d) {
            destinations.push_back(root + "/dest" + std::to_string(d));
            std::filesystem::create_directories(destinations.back());
        }
    }
    ~Card() { std::filesystem::remove_all(root); }
};

const Card& TheCard() {
    static const Card card;
    return card;
}

IGD::IngestDialogDataRef MakeSession(const Card& card) {
    IGD::IngestDialogDataRef session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
    session->SetSourceRoot(Fnd::FromUTF8(card.root + "/card"));
    for (int i = 0; i < kClips; ++i) {
        const Fnd::WString base = Fnd::FromUTF8(ClipName(i));
        boost::intrusive_ptr<IGD::SelectedClipItem> item(new IGD::SelectedClipItem(base + u".MOV"));
        item->AddExtraPath(base + u".xmp");
        item->SetIsSingleFileType(true);
        item->SetItemFormat(u"com.veltrix.Kestrel.WinProviderDirectory");
        item->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
        session->AddSelectedItem(item);
    }
    for (int d = 0; d < kDestinations; ++d) {
        IGD::IngestDestinationRef destination(new IGD::IngestDestination());
        destination->SetDestinationPath(Fnd::FromUTF8(card.destinations[d]));
        destination->SetSubFolder(u"Day 1");
        destination->SetPrimary(d == 0);
        destination->SetEnabled(true);
        session->AddDestination(destination);
    }
    return session;
}

// Which steps a run times: the copy decisions, the plan, or both.
enum Steps { kDecisions = 1, kPlan = 2 };

void RunSteps(benchmark::State& state, int timed) {
    const Card& card = TheCard();
    auto service = std::make_shared<DiscardingTaskService>();
    QL::IngestTask::SetTaskService(service);
    for (auto _ : state) {
        state.PauseTiming();
        IGD::IngestDialogDataRef session = MakeSession(card);
        if (timed & kDecisions)
            state.ResumeTiming();

        // Decided straight into the session's own map: copying 600,000 answers is no part of either step.
        const bool decided =
            IGD::BuildCopyDecisions(session->GetSourceRoot(), session->GetSelectedItems(),
                                    session->GetDestinations(), *session->GetCopyDecisions());
        if (!decided)
            state.SkipWithError("copy decisions failed");

        if (!(timed & kDecisions))
            state.ResumeTiming();
        else if (!(timed & kPlan))
            state.PauseTiming();
        IGD::RunIngestPlan(session, fluxcore::utility::Guid::CreateUnique());
        if (timed & kPlan)
            state.PauseTiming();

        session.reset();
        state.ResumeTiming();
    }
    if (service->units != static_cast<std::size_t>(state.iterations()) * kClips * kDestinations)
        state.SkipWithError("the plan did not submit one unit per clip and destination");
    QL::IngestTask::SetTaskService(nullptr);
    state.counters["item_destinations"] = benchmark::Counter(static_cast<double>(kClips) * kDestinations,
                                                             benchmark::Counter::kIsIterationInvariantRate);
}

void BM_CopyDecisionsAndPlan(benchmark::State& state) {
    RunSteps(state, kDecisions | kPlan);
}
void BM_CopyDecisionsOnly(benchmark::State& state) {
    RunSteps(state, kDecisions);
}
void BM_PlanOnly(benchmark::State& state) {
    RunSteps(state, kPlan);
}

// The floor: the existence tests the plan makes, done directly and in the plan's order. Copy
// decisions test the clip's target and the sidecar's target, destination by destination; then
// the plan tests each clip's source once per destination before it lists the clip for import.
void BM_StatFloor(benchmark::State& state) {
    const Card& card = TheCard();
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(kClips) * kDestinations * 3);
    for (int d = 0; d < kDestinations; ++d) {
        for (int i = 0; i < kClips; ++i) {
            const std::string name = ClipName(i);
            paths.push_back(card.destinations[d] + "/Day 1/" + name + ".MOV");
            paths.push_back(card.destinations[d] + "/Day 1/" + name + ".xmp");
        }
    }
    for (int d = 0; d < kDestinations; ++d) {
        for (int i = 0; i < kClips; ++i)
            paths.push_back(card.root + "/card/" + ClipName(i) + ".MOV");
    }
    for (auto _ : state) {
        int found = 0;
        struct stat info;
        for (const std::string& path : paths)
            found += stat(path.c_str(), &info) == 0;
        benchmark::DoNotOptimize(found);
    }
    state.counters["item_destinations"] = benchmark::Counter(static_cast<double>(kClips) * kDestinations,
                                                             benchmark::Counter::kIsIterationInvariantRate);
    state.counters["stats"] = static_cast<double>(paths.size());
}

BENCHMARK(BM_CopyDecisionsAndPlan)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_CopyDecisionsOnly)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_PlanOnly)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_StatFloor)->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace

BENCHMARK_MAIN();
