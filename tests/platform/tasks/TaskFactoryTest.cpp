#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Fnd/NullInterfaceException.h"
#include "QL/TaskFactory.h"

// The plan suites see every kind of task reach the recording service; here, what is left: a
// submission without a service.
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

} // namespace
} // namespace igd::test
