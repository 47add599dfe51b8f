#pragma once
// What the task service tests share: a temporary $IGD_HOME, a record of the service's messages,
// running the UI queue until a batch is over, task records made from file names, and a copy
// backend that counts reads and can change the disk between two sources.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Fnd/Listener.h"
#include "QL/CopySetting.h"
#include "QL/Engine/CopyBackend.h"
#include "QL/Engine/TaskService.h"
#include "QL/Engine/TaskServiceMessages.h"
#include "support/ScopedIgdHome.h"
#include "support/TempTree.h"

namespace igd::test {

// Every message the service posts, in the order the UI thread receives them.
class ServiceMessageLog : public Fnd::Listener {
public:
    ServiceMessageLog();
    ~ServiceMessageLog() override;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    std::vector<QL::Engine::BatchProgressMessage> progress;
    std::vector<QL::Engine::FileOutcomeMessage> files;
    std::vector<QL::Engine::TaskOutcomeMessage> tasks;
    std::vector<QL::Engine::BatchOutcomeMessage> batches;

    const QL::Engine::BatchOutcomeMessage* OutcomeOf(const fluxcore::utility::Guid& batch) const;
    const QL::Engine::FileOutcomeMessage* FileOutcome(const Fnd::WString& target) const;
};

// Drains the UI queue until the batch's outcome arrives; fails the test after the timeout.
const QL::Engine::BatchOutcomeMessage&
RunUntilOutcome(const ServiceMessageLog& log, const fluxcore::utility::Guid& batch,
                std::chrono::seconds timeout = std::chrono::seconds(60));
// Drains the UI queue until the condition holds; false after the timeout.
bool DrainUntil(const std::function<bool()>& condition,
                std::chrono::milliseconds timeout = std::chrono::milliseconds(30000));

// Posts the start message as the library does and lets the service hear it.
void StartBatch(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin = {});

// A unit that copies one file (and its side files) to one target folder, importing it there
// with its clip identity: what the plan makes of a single-file clip.
QL::IngestTask::CopyUnitRef FileUnit(const Fnd::WString& sourceFolder, const Fnd::WString& targetFolder,
                                     const std::string& name, const std::vector<std::string>& sideFiles = {},
                                     std::int32_t action = QL::kCopyActionNone);

QL::IngestTask::CopySetting CopyOf(std::vector<QL::IngestTask::CopyUnitRef> units, std::uint32_t verifyMode,
                                   bool addToProject);

// Names in the folder that the copier uses for its temporaries.
std::vector<std::string> TemporariesIn(const std::string& folder);

// The file and group copiers with a seam: counts the reads of each source and runs beforeCopy (on
// the worker) before each source is copied; small files are copied in groups, so beforeCopy runs
// for each of a group's sources before the group starts.
class CountingBackend : public QL::Engine::CopyBackend {
public:
    explicit CountingBackend(std::size_t chunkBytes = 1u << 20, QL::Engine::CopyHooks hooks = {});

    std::vector<QL::Engine::CopyOutcome> CopyFile(const QL::Engine::SourceCopy& copy,
                                                  QL::Engine::CopyControl& control,
                                                  const QL::Engine::ProgressFunction& progress) override;
    // Counts and runs beforeCopy for each source of the group before the group is copied.
    std::vector<std::vector<QL::Engine::CopyOutcome>>
    CopyGroup(const std::vector<QL::Engine::SourceCopy>& group, QL::Engine::CopyControl& control,
              const QL::Engine::GroupProgressFunction& progress) override;
    std::vector<QL::Engine::CopyOutcome>
    CopyFolder(const std::string& source, const std::vector<QL::Engine::CopyTarget>& targets) override;

    std::uint64_t LargestGroupedFile() const override { return copier_->LargestGroupedFile(); }

    std::function<void(const std::string& source)> beforeCopy;

    // How many times the source was read.
    int Reads(const std::string& source) const;

private:
    std::shared_ptr<QL::Engine::CopyBackend> copier_;
    mutable std::mutex mutex_;
    std::map<std::string, int> reads_;
};

// What a test of the service works in: a temporary home, a card folder with two destinations
// beside it, the service's messages and one batch.
class EngineTest : public ::testing::Test {
protected:
    std::string Native(const Fnd::WString& folder, const std::string& name) const {
        return Fnd::ToUTF8(folder) + "/" + name;
    }

    ScopedIgdHome home;
    TempTree tree;
    const Fnd::WString source = tree.MakeFolder("card");
    const Fnd::WString primary = tree.Path("primary");
    const Fnd::WString backup = tree.Path("backup");
    ServiceMessageLog log;
    fluxcore::utility::Guid batch = fluxcore::utility::Guid::CreateUnique();
};

// Options for a service under test: the temporary home's journal and project, a quick progress.
QL::Engine::TaskServiceOptions TestOptions(const ScopedIgdHome& home,
                                           std::shared_ptr<QL::Engine::CopyBackend> backend = nullptr);

} // namespace igd::test
