// Streams one 256 MiB clip to two targets on the work disk, as an ingest to a main and a backup
// destination does. Runs in $IGD_BENCH_DIR, else $TMPDIR, else /tmp: put it on the disk to
// measure. The source's cached pages are dropped before each run, so it is read from the disk.
//
// SerialWrites is the floor to beat for the write path: the same chunks, the same direct writes,
// but one target after the other. The TwoMedia pair puts the backup on a second medium,
// $IGD_BENCH_SECOND_DIR, else /dev/shm, as a main disk and a backup drive are. ParallelWrites is the copier
// without verification; the others add each verify mode. peak_rss_MiB is the process's peak so far: it must
// stay flat however large the clip, and well under 150 MiB with four targets.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"

namespace {

constexpr std::uint64_t kClipBytes = 256ull << 20;
constexpr std::size_t kChunkBytes = 8u << 20;

std::string BenchFolder() {
    for (const char* name : {"IGD_BENCH_DIR", "TMPDIR"}) {
        if (const char* value = std::getenv(name); value && *value)
            return value;
    }
    return "/tmp";
}

std::string SecondFolder() {
    const char* value = std::getenv("IGD_BENCH_SECOND_DIR");
    return value && *value ? value : "/dev/shm";
}

std::string MakeFolderIn(const std::string& parent) {
    std::string pattern = parent + "/igd-bench-copy-XXXXXX";
    return ::mkdtemp(pattern.data()) ? pattern : std::string();
}

// A folder with one clip of incompressible bytes, and one on the second medium, removed at exit.
class Scratch {
public:
    Scratch() : root_(MakeFolderIn(BenchFolder())), secondRoot_(MakeFolderIn(SecondFolder())) {
        if (root_.empty())
            throw std::runtime_error("cannot create a folder in " + BenchFolder());
        source_ = root_ + "/A001.MOV";
        std::vector<std::uint64_t> block(1 << 17);
        std::uint64_t state = 0x9E3779B97F4A7C15ull;
        const int fd = ::open(source_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        for (std::uint64_t done = 0; done < kClipBytes; done += block.size() * sizeof block[0]) {
            for (auto& word : block) {
                state ^= state << 13;
                state ^= state >> 7;
                state ^= state << 17;
                word = state;
            }
            if (::write(fd, block.data(), block.size() * sizeof block[0]) < 0)
                throw std::runtime_error("cannot write " + source_);
        }
        ::fsync(fd);
        ::close(fd);
    }
    ~Scratch() {
        std::filesystem::remove_all(root_);
        if (!secondRoot_.empty())
            std::filesystem::remove_all(secondRoot_);
    }

    const std::string& Source() const { return source_; }
    std::vector<std::string> Targets() const {
        return {root_ + "/main/A001.MOV", root_ + "/backup/A001.MOV", root_ + "/third/A001.MOV",
                root_ + "/fourth/A001.MOV"};
    }
    // Empty when the second medium is not there.
    std::vector<std::string> TwoMediaTargets() const {
        if (secondRoot_.empty())
            return {};
        return {root_ + "/main/A001.MOV", secondRoot_ + "/backup/A001.MOV"};
    }

    // Before each run: no copies left, and the source to be read from the disk.
    void Reset() const {
        for (const auto& targets : {Targets(), TwoMediaTargets()}) {
            for (const std::string& target : targets)
                std::filesystem::remove_all(std::filesystem::path(target).parent_path());
        }
        const int fd = ::open(source_.c_str(), O_RDONLY);
        ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
        ::close(fd);
    }

private:
    std::string root_;
    std::string secondRoot_;
    std::string source_;
};

const Scratch& TheScratch() {
    static const Scratch scratch;
    return scratch;
}

// The same reads and direct writes as the copier, one target after the other.
void CopySerially(const std::string& source, const std::vector<std::string>& targets) {
    void* memory = nullptr;
    if (::posix_memalign(&memory, 4096, kChunkBytes) != 0)
        throw std::bad_alloc();
    const int in = ::open(source.c_str(), O_RDONLY);
    ::posix_fadvise(in, 0, 0, POSIX_FADV_SEQUENTIAL);
    std::vector<int> outs;
    for (const std::string& target : targets) {
        std::filesystem::create_directories(std::filesystem::path(target).parent_path());
        outs.push_back(::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_DIRECT, 0644));
    }
    for (ssize_t got; (got = ::read(in, memory, kChunkBytes)) > 0;) {
        for (const int out : outs) {
            if (::write(out, memory, static_cast<std::size_t>(got)) != got)
                throw std::runtime_error("serial write failed");
        }
    }
    for (const int out : outs) {
        ::fsync(out);
        ::close(out);
    }
    ::close(in);
    std::free(memory);
}

void CopyWithCopier(const std::string& source, const std::vector<std::string>& targets,
                    std::uint32_t verifyMode) {
    std::vector<QL::Engine::CopyTarget> copyTargets;
    for (const std::string& target : targets)
        copyTargets.push_back({target, QL::kCopyActionNone});
    QL::Engine::CopyControl control;
    for (const auto& outcome :
         QL::Engine::FileCopier(kChunkBytes).CopyFile(source, copyTargets, verifyMode, control, {})) {
        if (outcome.status != QL::Engine::CopyStatus::Copied)
            throw std::runtime_error("copy failed: " + outcome.reason);
    }
}

template <typename Copy> void Run(benchmark::State& state, std::vector<std::string> targets, Copy copy) {
    const Scratch& scratch = TheScratch();
    if (targets.empty()) {
        state.SkipWithError("no second medium");
        return;
    }
    for (auto _ : state) {
        state.PauseTiming();
        scratch.Reset();
        state.ResumeTiming();
        copy(scratch.Source(), targets);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kClipBytes));
    // The copier's memory must not grow with the file: the process's peak so far tells.
    struct rusage usage {};
    ::getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_rss_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

std::vector<std::string> Targets(std::size_t count) {
    std::vector<std::string> targets = TheScratch().Targets();
    targets.resize(count);
    return targets;
}

void SerialWrites(benchmark::State& state) {
    Run(state, Targets(2), CopySerially);
}

void ParallelWrites(benchmark::State& state) {
    Run(state, Targets(2),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyNone); });
}

void SerialWritesTwoMedia(benchmark::State& state) {
    Run(state, TheScratch().TwoMediaTargets(), CopySerially);
}

void ParallelWritesTwoMedia(benchmark::State& state) {
    Run(state, TheScratch().TwoMediaTargets(),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyNone); });
}

void TwoTargetsMd5(benchmark::State& state) {
    Run(state, Targets(2),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyMD5); });
}

void TwoTargetsBitByBit(benchmark::State& state) {
    Run(state, Targets(2),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyBitByBit); });
}

void TwoTargetsFileSize(benchmark::State& state) {
    Run(state, Targets(2),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyFileSize); });
}

void FourTargetsBitByBit(benchmark::State& state) {
    Run(state, Targets(4),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyBitByBit); });
}

void OneTargetMd5(benchmark::State& state) {
    Run(state, Targets(1),
        [](const auto& s, const auto& t) { CopyWithCopier(s, t, QL::IngestTask::kVerifyMD5); });
}

} // namespace

BENCHMARK(SerialWrites)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(ParallelWrites)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(SerialWritesTwoMedia)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(ParallelWritesTwoMedia)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(TwoTargetsFileSize)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(TwoTargetsMd5)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(TwoTargetsBitByBit)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(FourTargetsBitByBit)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(OneTargetMd5)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

BENCHMARK_MAIN();
