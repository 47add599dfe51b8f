// Names for a large card: GenerateOutputNames over 100,000 items with a typical template (counter,
// creation date, file name). Every item is a real file, so the creation-time read is measured too.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "IGD/SelectedClipItem.h"
#include "QL/PresetFieldFactory.h"
#include "QL/PresetObject.h"
#include "pipeline/session/IngestDialogData.h"
#include "pipeline/naming/OutputNames.h"

namespace {

constexpr int kItems = 100000;

// Made once for all repetitions: creating 100,000 files is not what is measured.
class Card {
public:
    Card() {
        std::string pattern = (std::filesystem::temp_directory_path() / "igd-names-XXXXXX").string();
        root_ = mkdtemp(pattern.data());
        for (int i = 0; i < kItems; ++i) {
            const int fd = ::open((root_ + "/" + Name(i)).c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
            if (fd >= 0)
                ::close(fd);
        }
    }
    ~Card() { std::filesystem::remove_all(root_); }

    static std::string Name(int i) { return "A" + std::to_string(100000 + i) + ".MOV"; }
    const std::string& Root() const { return root_; }

private:
    std::string root_;
};

IGD::IngestDialogDataRef CardSession(const Card& card) {
    auto session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
    session->SetSourceRoot(Fnd::FromUTF8(card.Root()));
    for (int i = 0; i < kItems; ++i) {
        IGD::SelectedClipItemRef clip(new IGD::SelectedClipItem(Fnd::FromUTF8(Card::Name(i))));
        clip->SetClipName(clip->GetItemPath());
        clip->SetItemFormat(u"com.veltrix.Kestrel.WinProviderDirectory");
        session->AddSelectedItem(clip);
    }
    auto counter = QL::CreatePresetField(QL::kQLFieldAutoIncrement);
    counter->SetValue(u"00000");
    auto date = QL::CreatePresetField(QL::kQLFieldCreationDate);
    date->SetValue(u"%Y-%m-%d");
    auto separator = QL::CreatePresetField(QL::kQLFieldCustomText);
    separator->SetValue(u"_");
    auto name = QL::CreatePresetField(QL::kQLFieldFileName);
    session->SetRenamePreset(
        IGD::PresetRef(QL::PresetObject::Create(QL::kQLPresetCategoryRename, u"Card",
                                                {counter, separator, date, separator, name})
                           .get()));
    return session;
}

void BM_GenerateOutputNames(benchmark::State& state) {
    static const Card card;
    const auto session = CardSession(card);
    for (auto _ : state)
        IGD::GenerateOutputNames(*session, Fnd::Date::Now(), 1);
    state.SetItemsProcessed(state.iterations() * kItems);
    state.counters["names/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * kItems), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_GenerateOutputNames)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
