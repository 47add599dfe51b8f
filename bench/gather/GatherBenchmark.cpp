// Gathering at card scale: every clip of a synthetic P2 card of 5,000 clips, and every file of a
// plain folder of 5,000 files, gathered into one session the way the igd host does for the paths
// of one request (one card scan scope, GatherPathItems for each path).
//
// The trees are made once under $TMPDIR (else /tmp) and kept between runs, since making them is
// not what is measured; a marker file written last tells a finished tree from an interrupted one.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Browse/CardScanScope.h"
#include "pipeline/gathering/GatherPathItems.h"
#include "pipeline/session/IngestDialogData.h"

namespace {

namespace fs = std::filesystem;

constexpr int kClips = 5000;

void Touch(const fs::path& path, const std::string& content = {}) {
    if (content.empty()) {
        const int fd = ::open(path.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
        if (fd < 0)
            throw std::runtime_error("cannot create " + path.string());
        ::close(fd);
        return;
    }
    std::ofstream(path) << content;
}

// A tree kept under the temporary folder by name; Make fills a fresh folder that replaces any
// unfinished one.
template <typename Make> fs::path KeptTree(const std::string& name, Make make) {
    const fs::path root = fs::temp_directory_path() / name;
    const fs::path marker = root / ".complete";
    if (fs::exists(marker))
        return root;
    fs::remove_all(root);
    fs::create_directories(root);
    make(root);
    Touch(marker);
    return root;
}

std::string ClipId(int i) {
    char id[16];
    std::snprintf(id, sizeof id, "%04dAB", i);
    return id;
}

// The minimal clip the provider tests write: the XML names a global id, the media is empty.
fs::path P2Card() {
    return KeptTree("igd-bench-gather-p2-" + std::to_string(kClips), [](const fs::path& root) {
        const fs::path contents = root / "CARD" / "CONTENTS";
        for (const char* folder : {"CLIP", "VIDEO", "AUDIO"})
            fs::create_directories(contents / folder);
        for (int i = 0; i < kClips; ++i) {
            const std::string id = ClipId(i);
            Touch(contents / "CLIP" / (id + ".XML"),
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<P2Main><ClipContent><GlobalClipID>G" + id +
                      "</GlobalClipID></ClipContent></P2Main>\n");
            Touch(contents / "VIDEO" / (id + ".MXF"));
            Touch(contents / "AUDIO" / (id + "00.MXF"));
            Touch(contents / "AUDIO" / (id + "01.MXF"));
        }
    });
}

fs::path PlainFolder() {
    return KeptTree("igd-bench-gather-folder-" + std::to_string(kClips), [](const fs::path& root) {
        fs::create_directories(root / "footage");
        for (int i = 0; i < kClips; ++i)
            Touch(root / "footage" / ("C" + std::to_string(10000 + i) + ".MOV"));
    });
}

std::vector<Fnd::WString> P2MediaPaths() {
    const fs::path video = P2Card() / "CARD" / "CONTENTS" / "VIDEO";
    std::vector<Fnd::WString> paths;
    for (int i = 0; i < kClips; ++i)
        paths.push_back(Fnd::FromUTF8((video / (ClipId(i) + ".MXF")).string()));
    return paths;
}

std::vector<Fnd::WString> PlainPaths() {
    const fs::path folder = PlainFolder() / "footage";
    std::vector<Fnd::WString> paths;
    for (int i = 0; i < kClips; ++i)
        paths.push_back(Fnd::FromUTF8((folder / ("C" + std::to_string(10000 + i) + ".MOV")).string()));
    return paths;
}

void GatherAll(benchmark::State& state, const std::vector<Fnd::WString>& paths) {
    std::size_t items = 0;
    for (auto _ : state) {
        auto session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
        const Browse::CardScanScope scans;
        for (const Fnd::WString& path : paths)
            IGD::GatherPathItems(*session, path);
        items = session->GetSelectedItems().size();
        benchmark::DoNotOptimize(items);
    }
    // A gathering that lost items would look fast: report it rather than a rate.
    if (items != paths.size())
        state.SkipWithError(
            ("gathered " + std::to_string(items) + " items of " + std::to_string(paths.size())).c_str());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(paths.size()));
    state.counters["clips/s"] = benchmark::Counter(static_cast<double>(state.iterations() * paths.size()),
                                                   benchmark::Counter::kIsRate);
}

void BM_GatherP2Card(benchmark::State& state) {
    static const std::vector<Fnd::WString> paths = P2MediaPaths();
    GatherAll(state, paths);
}
BENCHMARK(BM_GatherP2Card)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_GatherPlainFolder(benchmark::State& state) {
    static const std::vector<Fnd::WString> paths = PlainPaths();
    GatherAll(state, paths);
}
BENCHMARK(BM_GatherPlainFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
