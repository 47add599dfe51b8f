#include "EngineTestSupport.h"

#include <dirent.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "Mid/Utilities.h"
#include "QL/Engine/FileCopier.h"
#include "QL/IngestMessages.h"

namespace igd::test {

using namespace QL::Engine;

ServiceMessageLog::ServiceMessageLog() {
    Fnd::StationUtils::AddListener(kStation_TaskService, this);
}

ServiceMessageLog::~ServiceMessageLog() {
    Fnd::StationUtils::RemoveListener(kStation_TaskService, this);
}

void ServiceMessageLog::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* m = Fnd::MessageCast<BatchProgressMessage>(message))
        progress.push_back(*m);
    else if (const auto* m = Fnd::MessageCast<FileOutcomeMessage>(message))
        files.push_back(*m);
    else if (const auto* m = Fnd::MessageCast<TaskOutcomeMessage>(message))
        tasks.push_back(*m);
    else if (const auto* m = Fnd::MessageCast<BatchOutcomeMessage>(message))
        batches.push_back(*m);
}

const BatchOutcomeMessage* ServiceMessageLog::OutcomeOf(const fluxcore::utility::Guid& batch) const {
    for (const BatchOutcomeMessage& outcome : batches)
        if (outcome.batch == batch)
            return &outcome;
    return nullptr;
}

const FileOutcomeMessage* ServiceMessageLog::FileOutcome(const Fnd::WString& target) const {
    for (const FileOutcomeMessage& outcome : files)
        if (outcome.target == target)
            return &outcome;
    return nullptr;
}

bool DrainUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        Fnd::GetDefaultQueue().Drain();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

const BatchOutcomeMessage& RunUntilOutcome(const ServiceMessageLog& log, const fluxcore::utility::Guid& batch,
                                           std::chrono::seconds timeout) {
    if (!DrainUntil([&] { return log.OutcomeOf(batch) != nullptr; }, timeout))
        throw std::runtime_error("the batch " + batch.ToString() + " did not end in time");
    return *log.OutcomeOf(batch);
}

void StartBatch(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin) {
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia,
                                             QL::StartIngestMessage(batch, targetBin), false);
}

QL::IngestTask::CopyUnitRef FileUnit(const Fnd::WString& sourceFolder, const Fnd::WString& targetFolder,
                                     const std::string& name, const std::vector<std::string>& sideFiles,
                                     std::int32_t action) {
    QL::IngestTask::CopyUnitRef unit(new QL::IngestTask::CopyUnit);
    const Fnd::WString wideName = Fnd::FromUTF8(name);
    const Fnd::WString target = Mid::Utilities::CombinePaths(targetFolder, wideName);
    unit->entries.push_back(
        QL::CopyEntry{Mid::Utilities::CombinePaths(sourceFolder, wideName), target, action, false});
    auto item = std::make_shared<QL::IngestItem>();
    item->path = target;
    item->name = wideName;
    item->format = u"com.veltrix.Kestrel.WinProviderDirectory";
    for (const std::string& side : sideFiles) {
        const Fnd::WString wideSide = Fnd::FromUTF8(side);
        const Fnd::WString sideTarget = Mid::Utilities::CombinePaths(targetFolder, wideSide);
        unit->entries.push_back(
            QL::CopyEntry{Mid::Utilities::CombinePaths(sourceFolder, wideSide), sideTarget, action, false});
        item->extraPaths.push_back(sideTarget);
    }
    unit->importItems[target] = item;
    unit->clipGuids[target] = fluxcore::utility::Guid::CreateUnique();
    return unit;
}

QL::IngestTask::CopySetting CopyOf(std::vector<QL::IngestTask::CopyUnitRef> units, std::uint32_t verifyMode,
                                   bool addToProject) {
    QL::IngestTask::CopySetting setting;
    setting.units.assign(units.begin(), units.end());
    setting.verifyMode = verifyMode;
    setting.addToProject = addToProject;
    return setting;
}

std::vector<std::string> TemporariesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (DIR* dir = ::opendir(folder.c_str())) {
        while (const dirent* entry = ::readdir(dir))
            if (FileCopier::IsTemporaryName(entry->d_name))
                names.emplace_back(entry->d_name);
        ::closedir(dir);
    }
    return names;
}

CountingBackend::CountingBackend(std::size_t chunkBytes, CopyHooks hooks)
    : copier_(MakeFileCopierBackend(chunkBytes, std::move(hooks))) {}

std::vector<CopyOutcome> CountingBackend::CopyFile(const SourceCopy& copy, CopyControl& control,
                                                   const ProgressFunction& progress) {
    {
        std::lock_guard lock(mutex_);
        ++reads_[copy.source];
    }
    if (beforeCopy)
        beforeCopy(copy.source);
    return copier_->CopyFile(copy, control, progress);
}

std::vector<std::vector<CopyOutcome>> CountingBackend::CopyGroup(const std::vector<SourceCopy>& group,
                                                                 CopyControl& control,
                                                                 const GroupProgressFunction& progress) {
    for (const SourceCopy& copy : group) {
        {
            std::lock_guard lock(mutex_);
            ++reads_[copy.source];
        }
        if (beforeCopy)
            beforeCopy(copy.source);
    }
    return copier_->CopyGroup(group, control, progress);
}

std::vector<CopyOutcome> CountingBackend::CopyFolder(const std::string& source,
                                                     const std::vector<CopyTarget>& targets) {
    return copier_->CopyFolder(source, targets);
}

int CountingBackend::Reads(const std::string& source) const {
    std::lock_guard lock(mutex_);
    const auto found = reads_.find(source);
    return found == reads_.end() ? 0 : found->second;
}

TaskServiceOptions TestOptions(const ScopedIgdHome& home, std::shared_ptr<CopyBackend> backend) {
    TaskServiceOptions options;
    options.journalPath = home.Path() + "/journal.sqlite";
    options.projectPath = home.ProjectPath();
    options.copyBackend = std::move(backend);
    options.progressInterval = std::chrono::milliseconds(20);
    return options;
}

} // namespace igd::test
