#pragma once
// A task service for tests: it runs nothing and records every submission, in order, as a deep
// copy, so a test can inspect exactly what the library handed over even if the caller changed
// its objects afterwards.
//
//     igd::test::ScopedTaskService tasks;          // installed until the end of the scope
//     RunSomethingThatSubmits();
//     ASSERT_EQ(tasks->Tasks().size(), 1u);
//     EXPECT_EQ(tasks->Tasks()[0].Copy().units.size(), 2u);
//     EXPECT_EQ(tasks->Tasks()[0].batch, expectedBatch);
#include <cstddef>
#include <memory>
#include <set>
#include <variant>
#include <vector>

#include "QL/TaskFactory.h"

namespace igd::test {

enum class TaskKind { Copy, Transcode, Concatenate, Import, UpdateMetadata };

// One submission. setting holds CopySetting for Copy, TranscodeSetting for Transcode and
// Concatenate, ImportSetting for Import, UpdateMetadataSetting for UpdateMetadata.
struct RecordedTask {
    TaskKind kind;
    fluxcore::utility::Guid batch;
    std::variant<QL::IngestTask::CopySetting, QL::IngestTask::TranscodeSetting, QL::IngestTask::ImportSetting,
                 QL::IngestTask::UpdateMetadataSetting>
        setting;
    QL::IngestCustomData customData;

    // The setting as its type; a test that asks for the wrong one fails with std::bad_variant_access.
    const QL::IngestTask::CopySetting& Copy() const { return std::get<QL::IngestTask::CopySetting>(setting); }
    const QL::IngestTask::TranscodeSetting& Transcode() const {
        return std::get<QL::IngestTask::TranscodeSetting>(setting);
    }
    const QL::IngestTask::ImportSetting& Import() const {
        return std::get<QL::IngestTask::ImportSetting>(setting);
    }
    const QL::IngestTask::UpdateMetadataSetting& UpdateMetadata() const {
        return std::get<QL::IngestTask::UpdateMetadataSetting>(setting);
    }
};

class RecordingTaskService : public QL::IngestTask::ITaskService {
public:
    void SubmitCopyTask(const QL::IngestTask::CopySetting& setting, const fluxcore::utility::Guid& batch,
                        const QL::IngestCustomData& data) override;
    void SubmitTranscodeTask(const QL::IngestTask::TranscodeSetting& setting,
                             const fluxcore::utility::Guid& batch, const QL::IngestCustomData& data) override;
    void SubmitConcatenateTask(const QL::IngestTask::TranscodeSetting& setting,
                               const fluxcore::utility::Guid& batch,
                               const QL::IngestCustomData& data) override;
    void SubmitImportTask(const QL::IngestTask::ImportSetting& setting, const fluxcore::utility::Guid& batch,
                          const QL::IngestCustomData& data) override;
    void SubmitUpdateMetadataTask(const QL::IngestTask::UpdateMetadataSetting& setting,
                                  const fluxcore::utility::Guid& batch,
                                  const QL::IngestCustomData& data) override;
    // True for the paths given to AddPathInCopyList, compared exactly.
    bool IsPathInCopyList(const Fnd::WString& path) const override;

    void AddPathInCopyList(const Fnd::WString& path) { pathsInCopyList_.insert(path); }

    // Every submission, in the order of submission.
    const std::vector<RecordedTask>& Tasks() const { return tasks_; }
    void Clear() { tasks_.clear(); }

private:
    std::vector<RecordedTask> tasks_;
    std::set<Fnd::WString> pathsInCopyList_;
};

// Installs a fresh RecordingTaskService for its lifetime and removes it afterwards, so that a
// test never leaks a service into the next one.
class ScopedTaskService {
public:
    ScopedTaskService();
    ~ScopedTaskService();
    ScopedTaskService(const ScopedTaskService&) = delete;
    ScopedTaskService& operator=(const ScopedTaskService&) = delete;

    RecordingTaskService& Service() const { return *service_; }
    RecordingTaskService* operator->() const { return service_.get(); }

private:
    std::shared_ptr<RecordingTaskService> service_;
};

} // namespace igd::test
