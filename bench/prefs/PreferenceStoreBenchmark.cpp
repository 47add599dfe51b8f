// What the user waits for when the dialog opens and when an accepted ingest closes it: loading and
// storing every setting through the SQLite store, each write its own durable transaction.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "Proj/Backend.h"
#include "Proj/PreferenceStore.h"
#include "settings/IngestSettingsController.h"

namespace {

// A primary and two backups, each with a full list of recent paths: the most a store holds for
// one dialog.
class StoreFixture {
public:
    StoreFixture() {
        const char* tmp = std::getenv("TMPDIR");
        folder_ = std::filesystem::path(tmp && *tmp ? tmp : "/tmp") /
                  ("igd-bench-prefs-" + std::to_string(::getpid()));
        std::filesystem::remove_all(folder_);
        store_ = Proj::PreferenceStore::Open((folder_ / "preferences.db").string(),
                                             [] { return std::string("/nonexistent"); });
        backend_.emplace(Fnd::InterfaceRef<Proj::IPreferences>(store_.get()));
        controller_.LoadSettings();
        controller_.SetTransferDisabled(false);
        for (int backup = 0; backup < 2; ++backup)
            controller_.AddBackupDestination(u"/Volumes/Backup" + Fnd::ToDecimal(backup));
        for (int index = 0; index < 3; ++index)
            for (int path = 0; path < 5; ++path)
                controller_.GetDestinationSetting(index).AddPathToMRU(u"/Volumes/RAID/Show/Day " +
                                                                      Fnd::ToDecimal(path));
        controller_.SaveSettings();
    }
    ~StoreFixture() {
        backend_.reset();
        store_.reset();
        std::filesystem::remove_all(folder_);
    }

    IGD::IngestSettingsController& Controller() { return controller_; }
    Proj::PreferenceStore& Store() { return *store_; }

private:
    std::filesystem::path folder_;
    Fnd::InterfaceRef<Proj::PreferenceStore> store_;
    std::optional<Proj::ScopedBackend> backend_;
    IGD::IngestSettingsController controller_{[] { return QL::IngestUtils::IngestSettings{}; }};
};

void BM_SaveSettings(benchmark::State& state) {
    StoreFixture fixture;
    for (auto _ : state)
        fixture.Controller().SaveSettings();
}
BENCHMARK(BM_SaveSettings)->Unit(benchmark::kMillisecond);

// Every value differs from the stored one, so every write reaches the disk: the worst close.
void BM_SaveSettingsAllChanged(benchmark::State& state) {
    StoreFixture fixture;
    IGD::IngestSettingsController& controller = fixture.Controller();
    bool flip = false;
    std::uint32_t round = 0;
    for (auto _ : state) {
        flip = !flip;
        ++round;
        controller.SetTransferSectionOpened(flip);
        controller.SetTransferDisabled(flip);
        controller.SetVerifyOption(flip ? 1 : 2);
        controller.SetRenameSectionOpened(flip);
        controller.SetMetadataSectionOpened(flip);
        controller.SetEnableRenameTemplate(flip);
        controller.SetEnableMetadataTemplate(flip);
        controller.SetRenameApplyScope(round);
        controller.SetMetadataApplyScope(round);
        controller.SetUserDefAutoIncStartNumber(round + 1);
        for (int index = 0; index < 3; ++index) {
            IGD::DestinationSetting& setting = controller.GetDestinationSetting(index);
            setting.needSubFolder = flip;
            setting.enabled = flip;
            setting.AddPathToMRU(u"/Volumes/RAID/Show/Day " + Fnd::ToDecimal(round));
            auto transcode = setting.destination->GetTranscodeSetting();
            transcode->enabled = flip;
            transcode->presetName = u"Preset " + Fnd::ToDecimal(round);
            transcode->exporterName = u"Exporter " + Fnd::ToDecimal(round);
            transcode->concatenate = flip;
        }
        controller.SaveSettings();
    }
}
BENCHMARK(BM_SaveSettingsAllChanged)->Unit(benchmark::kMillisecond);

void BM_LoadSettings(benchmark::State& state) {
    StoreFixture fixture;
    for (auto _ : state)
        fixture.Controller().LoadSettings();
}
BENCHMARK(BM_LoadSettings)->Unit(benchmark::kMicrosecond);

void BM_OneDurableWrite(benchmark::State& state) {
    StoreFixture fixture;
    std::uint32_t value = 0;
    for (auto _ : state)
        fixture.Store().SetValue(Proj::PreferenceKey("bench.value"),
                                 Proj::SerializeableValue<std::uint32_t>(++value), true);
}
BENCHMARK(BM_OneDurableWrite)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
