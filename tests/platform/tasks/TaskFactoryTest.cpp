#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Fnd/NullInterfaceException.h"
#include "QL/TaskFactory.h"
#include "support/RecordingTaskService.h"

// The plan suites see every kind of task reach the recording service; here, what is left: a
// submission without a service, and the record being a copy of what was submitted.
namespace igd::test {
namespace {

using namespace QL::IngestTask;

struct ForwardCase {
    const char* operation;
    std::function<void(const fluxcore::utility::Guid&, const QL::IngestCustomData&)> submit;
};

class TaskFactoryWithoutService : public testing::TestWithParam<ForwardCase> {};

TEST_P(TaskFactoryWithoutService, ThrowsNamingTheOperation) {
    ASSERT_EQ(GetTaskService(), nullptr);
    try {
        GetParam().submit(fluxcore::utility::Guid::CreateUnique(), {});
        FAIL() << "no exception";
    } catch (const Fnd::NullInterfaceException& e) {
        EXPECT_NE(std::string(e.what()).find(GetParam().operation), std::string::npos) << e.what();
        EXPECT_NE(std::string(e.what()).find("no task service"), std::string::npos) << e.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    AllOperations, TaskFactoryWithoutService,
    testing::Values(
        ForwardCase{"SubmitCopyTask",
                    [](auto& b, auto& d) { TaskFactory::SubmitCopyTask(CopySetting{}, b, d); }},
        ForwardCase{"SubmitTranscodeTask",
                    [](auto& b, auto& d) { TaskFactory::SubmitTranscodeTask(TranscodeSetting{}, b, d); }},
        ForwardCase{"SubmitConcatenateTask",
                    [](auto& b, auto& d) { TaskFactory::SubmitConcatenateTask(TranscodeSetting{}, b, d); }},
        ForwardCase{"SubmitImportTask",
                    [](auto& b, auto& d) { TaskFactory::SubmitImportTask(ImportSetting{}, b, d); }},
        ForwardCase{
            "SubmitUpdateMetadataTask",
            [](auto& b, auto& d) { TaskFactory::SubmitUpdateMetadataTask(UpdateMetadataSetting{}, b, d); }}),
    [](const testing::TestParamInfo<ForwardCase>& c) { return std::string(c.param.operation); });

// The planner reuses its objects between submissions; the record must show what was submitted
// then, not what the objects hold later, or tests of the planner would check the wrong thing.
TEST(TaskFactory, RecordIsADeepCopyOfTheSubmission) {
    ScopedTaskService tasks;
    CopySetting setting;
    CopyUnitRef unit(new CopyUnit);
    unit->entries.push_back({u"/card/A001.MOV", u"/dest/A001.MOV", QL::kCopyActionNone, false});
    auto item = std::make_shared<QL::IngestItem>();
    item->name = u"A001";
    unit->importItems[u"/dest/A001.MOV"] = item;
    setting.units.push_back(unit);
    QL::IngestCustomData data;
    data.metadataSets.push_back(std::make_shared<QL::MetadataFieldSet>());
    data.metadataSets.front()->presetName = u"Before";

    TaskFactory::SubmitCopyTask(setting, fluxcore::utility::Guid::CreateUnique(), data);
    unit->entries.front().target = u"/elsewhere";
    item->name = u"changed";
    data.metadataSets.front()->presetName = u"After";

    const CopySetting& recorded = tasks->Tasks()[0].Copy();
    ASSERT_EQ(recorded.units.size(), 1u);
    EXPECT_EQ(recorded.units.front()->entries.front().target, u"/dest/A001.MOV");
    EXPECT_EQ(recorded.units.front()->importItems.at(u"/dest/A001.MOV")->name, u"A001");
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.front()->presetName, u"Before");
}

} // namespace
} // namespace igd::test
