// Poster frames of a browser's worth of clips at 160 pixels wide: the first pass decodes every
// clip, the cached passes read the cache only, in a fresh service (as the next run of a host
// would, listing the cache folder once) and in the same service again. Medians of three rounds;
// the page cache is dropped before each first pass when run as root.
//
//     bench_thumbnails [--clips N] [--size WxH] [--codec NAME] [--folder DIR]
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "Av/CachingFrameService.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

struct Options {
    int clips = 1000;
    std::string size = "1920x1080";
    std::string codec = "libx264";
    std::string folder;
};

Options Parse(int argc, char** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--clips")
            options.clips = std::atoi(argv[i + 1]);
        else if (name == "--size")
            options.size = argv[i + 1];
        else if (name == "--codec")
            options.codec = argv[i + 1];
        else if (name == "--folder")
            options.folder = argv[i + 1];
        else {
            std::cerr << "bench_thumbnails: unknown option " << name << "\n";
            std::exit(2);
        }
    }
    return options;
}

void MakeClip(const std::string& path, const Options& options) {
    const std::string command = "ffmpeg -nostdin -loglevel error -y -f lavfi -i testsrc2=size=" + options.size +
                                ":rate=25:duration=1 -f lavfi -i sine=duration=1 -c:v " + options.codec +
                                " -pix_fmt yuv420p -c:a aac -timecode 01:00:00:00 '" + path + "'";
    if (std::system(command.c_str()) != 0) {
        std::cerr << "bench_thumbnails: ffmpeg could not make " << path << "\n";
        std::exit(1);
    }
}

void DropPageCache() {
    if (::geteuid() != 0)
        return;
    ::sync();
    std::ofstream("/proc/sys/vm/drop_caches") << "3\n";
}

double Milliseconds(Clock::duration elapsed) {
    return std::chrono::duration<double, std::milli>(elapsed).count();
}

// Every clip's poster frame once, in milliseconds.
double Pass(Av::CachingFrameService& service, const std::vector<std::string>& clips) {
    const Clock::time_point start = Clock::now();
    for (const std::string& clip : clips)
        if (service.PosterFrame(clip, 160).width != 160)
            std::abort();
    return Milliseconds(Clock::now() - start);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    const Options options = Parse(argc, argv);
    const fs::path root = options.folder.empty() ? fs::temp_directory_path() / ("igd-bench-thumbnails-" + std::to_string(::getpid()))
                                                 : fs::path(options.folder);
    fs::create_directories(root / "clips");
    const std::string first = (root / "clips" / "C0000.MP4").string();
    MakeClip(first, options);
    std::vector<std::string> clips{first};
    for (int i = 1; i < options.clips; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "C%04d.MP4", i);
        clips.push_back((root / "clips" / name).string());
        fs::copy_file(first, clips.back(), fs::copy_options::overwrite_existing);
    }
    const std::string cache = (root / "cache").string();
    std::cout << clips.size() << " clips of " << options.size << " " << options.codec << ", "
              << fs::file_size(first) / 1024 << " KiB each; poster frames 160 px wide"
              << (::geteuid() == 0 ? "" : " (not root: page cache kept)") << "\n";

    std::vector<double> firstPass, freshService, sameService;
    for (int round = 0; round < 3; ++round) {
        fs::remove_all(cache);
        DropPageCache();
        Av::CachingFrameService decoding(Av::FrameCacheOptions{cache});
        firstPass.push_back(Pass(decoding, clips));
        Av::CachingFrameService nextRun(Av::FrameCacheOptions{cache});
        freshService.push_back(Pass(nextRun, clips));
        sameService.push_back(Pass(nextRun, clips));
        if (nextRun.MediaReads() != 0)
            std::cerr << "bench_thumbnails: the cached passes decoded " << nextRun.MediaReads() << " clips\n";
        std::printf("round %d: first %.0f ms, cached (fresh service) %.2f ms, cached (same service) %.2f ms\n",
                    round + 1, firstPass.back(), freshService.back(), sameService.back());
    }
    std::printf("median of 3: first pass %.0f ms (%.2f ms a clip), cached pass %.2f ms in a fresh service, "
                "%.2f ms in the same service (target: under 50 ms)\n",
                Median(firstPass), Median(firstPass) / double(clips.size()), Median(freshService),
                Median(sameService));
    if (options.folder.empty())
        fs::remove_all(root);
    return 0;
}
