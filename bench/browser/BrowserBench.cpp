// The media browser's model over a folder of 5,000 clips, from a cold frame cache: how long until
// the first rows reach the UI thread and until the listing is complete, and the longest single
// task the UI thread runs while facts and thumbnails of the first 200 rows (those on screen) fill
// in. Each run has a cache folder of its own; the page cache is dropped before each run when run as
// root. Medians of three.
//
//     bench_browser [--clips N] [--visible N] [--runs N] [--page-cache keep]
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "Av/CachingFrameService.h"
#include "Fnd/RunLoop.h"
#include "fluxmediabrowser/MediaBrowserModel.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Kind = fluxmediabrowser::MediaModelChange::Kind;

double Milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

struct Run {
    double firstRows = 0;
    double listed = 0;
    double visibleFilled = 0;
    double longestTask = 0; // OpenDirectory's own call included
};

void DropPageCache() {
    ::sync();
    std::ofstream drop("/proc/sys/vm/drop_caches");
    if (drop)
        drop << "3\n";
}

Run Measure(const fs::path& folder, const fs::path& cache, std::size_t visible) {
    Mid::FrameService::Install(std::make_shared<Av::CachingFrameService>(Av::FrameCacheOptions{cache.string()}));
    Fnd::QueueRunLoop& queue = Fnd::GetDefaultQueue();
    Run run;
    std::optional<Clock::time_point> firstRows;
    std::optional<Clock::time_point> listed;
    fluxmediabrowser::MediaBrowserModel model("bench");
    model.SetChangeFunction([&](const fluxmediabrowser::MediaModelChange& change) {
        if (change.kind == Kind::Appended && !firstRows)
            firstRows = Clock::now();
        if (change.kind == Kind::Listed)
            listed = Clock::now();
    });
    const auto filled = [&] {
        const auto& entries = model.Entries();
        if (entries.size() < visible)
            return false;
        return std::all_of(entries.begin(), entries.begin() + std::ptrdiff_t(visible),
                           [](const fluxmediabrowser::MediaEntry& e) { return e.facts || e.factsUnavailable; });
    };

    const Clock::time_point start = Clock::now();
    model.SetVisibleRange(0, visible);
    model.OpenDirectory(folder.u16string());
    run.longestTask = Milliseconds(Clock::now() - start);
    // The UI thread: one task at a time, each timed, as an event loop would run them.
    while (!(listed && filled())) {
        const Clock::time_point before = Clock::now();
        if (queue.Drain(1) == 0) {
            ::usleep(200);
            continue;
        }
        run.longestTask = std::max(run.longestTask, Milliseconds(Clock::now() - before));
    }
    run.visibleFilled = Milliseconds(Clock::now() - start);
    run.firstRows = Milliseconds(*firstRows - start);
    run.listed = Milliseconds(*listed - start);
    return run;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    std::size_t clips = 5000;
    std::size_t visible = 200;
    int runs = 3;
    bool dropPageCache = true;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--clips")
            clips = std::strtoul(argv[i + 1], nullptr, 10);
        else if (name == "--visible")
            visible = std::strtoul(argv[i + 1], nullptr, 10);
        else if (name == "--runs")
            runs = std::atoi(argv[i + 1]);
        else if (name == "--page-cache")
            dropPageCache = std::string(argv[i + 1]) != "keep";
        else {
            std::cerr << "bench_browser: unknown option " << name << "\n";
            return 2;
        }
    }
    visible = std::min(visible, clips);

    char pattern[] = "/tmp/bench-browser-XXXXXX";
    if (!::mkdtemp(pattern)) {
        std::perror("bench_browser: mkdtemp");
        return 1;
    }
    const fs::path root = pattern;
    const fs::path folder = root / "clips";
    fs::create_directories(folder);
    const fs::path source = root / "source.mov";
    const std::string command = "ffmpeg -nostdin -loglevel error -y -f lavfi -i testsrc2=size=64x36:rate=25:duration=1 "
                                "-c:v mpeg4 -timecode 01:00:00:00 '" + source.string() + "'";
    if (std::system(command.c_str()) != 0) {
        std::cerr << "bench_browser: ffmpeg could not make " << source << "\n";
        return 1;
    }
    // Distinct names, one set of bytes: the frame service keys on the path, so each is decoded.
    for (std::size_t i = 0; i < clips; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "C%05zu.mov", i);
        fs::create_hard_link(source, folder / name);
    }
    ::setenv("IGD_HOME", (root / "home").c_str(), 1);

    std::vector<double> firstRows, listed, filled, longest;
    for (int r = 0; r < runs; ++r) {
        if (dropPageCache)
            DropPageCache();
        const Run run = Measure(folder, root / ("cache" + std::to_string(r)), visible);
        firstRows.push_back(run.firstRows);
        listed.push_back(run.listed);
        filled.push_back(run.visibleFilled);
        longest.push_back(run.longestTask);
        std::printf("run %d: first rows %.1f ms, listed %.1f ms, %zu visible filled %.1f ms, longest UI task %.2f ms\n", r + 1,
                    run.firstRows, run.listed, visible, run.visibleFilled, run.longestTask);
    }
    Mid::FrameService::Install(nullptr);
    std::printf("median of %d, %zu clips: first rows %.1f ms, listed %.1f ms, %zu visible filled %.1f ms, "
                "longest UI task %.2f ms\n",
                runs, clips, Median(firstRows), Median(listed), visible, Median(filled), Median(longest));
    std::error_code ignored;
    fs::remove_all(root, ignored);
    return 0;
}
