// Transcodes as the service runs them: real clips in, checked files out, failures alone, nothing
// left under a temporary or a final name for what failed. Stitching is seen through `igd ingest`.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "Av/ClipInfo.h"
#include "Av/EncoderList.h"
#include "EngineTestSupport.h"
#include "Fnd/PathUtils.h"
#include "Mid/PresetManager.h"
#include "Proj/Project.h"
#include "QL/Engine/FileCopier.h"
#include "QL/Engine/Journal.h"
#include "QL/XmpSidecarWriter.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

class TaskServiceTranscodeTest : public EngineTest {
protected:
    TaskServiceTranscodeTest() { Mid::PresetManager::Install(Av::MakeEncoderList(Av::DefaultEncoderPresetFolders())); }
    ~TaskServiceTranscodeTest() override { Mid::PresetManager::Install(nullptr); }

    Fnd::WString Clip(const std::string& name, double seconds = 1.0) {
        TestClipOptions clip;
        clip.seconds = seconds;
        clip.audioCodec = "aac";
        MakeTestClip(Native(source, name), clip);
        return Fnd::FromUTF8(Native(source, name));
    }

    static QL::IngestTask::TranscodeSetting Proxy(const Fnd::WString& outputPath, std::vector<Fnd::WString> clips,
                                                  const Fnd::WString& preset = u"Apple ProRes 422 Proxy") {
        QL::IngestTask::TranscodeSetting setting;
        setting.enabled = true;
        setting.exporterName = u"QuickTime";
        setting.presetName = preset;
        setting.outputPath = outputPath;
        setting.addToProject = true;
        for (Fnd::WString& path : clips) {
            QL::IngestTask::TranscodeClipEntry clip;
            clip.path = std::move(path);
            setting.clips.push_back(std::move(clip));
        }
        return setting;
    }

    const BatchOutcomeMessage& Run() {
        StartBatch(batch);
        return RunUntilOutcome(log, batch, std::chrono::seconds(120));
    }

    static std::vector<std::string> Names(const Fnd::WString& folder) {
        std::vector<std::string> names;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(Fnd::ToUTF8(folder), error))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(TaskServiceTranscodeTest, TwoDestinationsGetACheckedProxyEachImportedWithItsMetadata) {
    const Fnd::WString clip = Clip("A001.MP4");
    QL::IngestCustomData data;
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->schemaNamespace = u"http://ns.example.com/igd/shoot/1.0/";
    set->presetName = u"Shoot";
    set->values = {{u"scene", u"12A"}};
    data.metadataSets.push_back(set);
    {
        TaskService service(TestOptions(home));
        QL::IngestTask::TranscodeSetting main = Proxy(primary, {clip});
        main.clips.front().name = u"Day1_A001";
        service.SubmitTranscodeTask(main, batch, data);
        QL::IngestTask::TranscodeSetting second = Proxy(backup, {clip});
        second.addToProject = false;
        service.SubmitTranscodeTask(second, batch, data);
        EXPECT_TRUE(service.IsPathInCopyList(Fnd::FromUTF8(Native(primary, "Day1_A001.mov"))));
        const BatchOutcomeMessage& outcome = Run();
        EXPECT_EQ(outcome.status, OutcomeStatus::Succeeded);
        EXPECT_EQ(outcome.filesCopied, 2u);
        EXPECT_EQ(outcome.itemsImported, 1u);
    }
    for (const std::string& path : {Native(primary, "Day1_A001.mov"), Native(backup, "A001.mov")}) {
        const Av::ClipInfo info = Av::ProbeClip(path);
        EXPECT_EQ(info.videoCodec, "prores") << path;
        EXPECT_EQ(info.videoProfile, "Proxy") << path;
    }
    EXPECT_EQ(Names(primary), (std::vector<std::string>{"Day1_A001.mov", "Day1_A001.xmp"}));
    EXPECT_EQ(QL::ReadXmpProperty(Native(primary, "Day1_A001.xmp"), set->schemaNamespace, u"scene"), u"12A");
    const auto items = Proj::Project::Open(home.ProjectPath())->Items();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.front().path, Fnd::FromUTF8(Native(primary, "Day1_A001.mov")));
    EXPECT_EQ(items.front().name, u"Day1_A001");
    // The frames of both came from one decode.
    ASSERT_FALSE(log.progress.empty());
    std::uint64_t mostFrames = 0;
    for (const BatchProgressMessage& progress : log.progress)
        mostFrames = std::max(mostFrames, progress.framesTotal);
    EXPECT_EQ(mostFrames, 25u);
}

TEST_F(TaskServiceTranscodeTest, BadClipsAndPresetsFailAloneNamingTheFileAndLeaveNothing) {
    const Fnd::WString good = Clip("A001.MP4");
    tree.MakeFile("card/A002.MP4", "not media at all");
    const Fnd::WString text = Fnd::FromUTF8(Native(source, "A002.MP4"));
    // The index at the front promises a second; the frames stop halfway.
    const Fnd::WString whole = Fnd::FromUTF8(Native(source, "A003.MP4"));
    MakeTestClip(Fnd::ToUTF8(whole), {.audioCodec = "aac", .extraArguments = {"-movflags", "+faststart"}});
    std::filesystem::resize_file(Fnd::ToUTF8(whole), std::filesystem::file_size(Fnd::ToUTF8(whole)) * 6 / 10);
    QL::IngestTask::TranscodeSetting cutPastEnd = Proxy(primary, {Clip("A004.MP4")});
    cutPastEnd.clips.front().outPoint = 5 * fluxmediatypes::kTicksPerSecond;
    TestClipOptions tone;
    tone.timecode.clear();
    tone.extraArguments = {"-vn"};
    MakeTestClip(Native(source, "A005.WAV"), tone);
    const Fnd::WString sound = Fnd::FromUTF8(Native(source, "A005.WAV"));
    home.MakeFile("encoder-presets/missing.igdencoder",
                  "<encoderPreset version=\"1\"><name>Missing</name><exporter>QuickTime</exporter>"
                  "<video encoder=\"no_such_encoder\"/></encoderPreset>");
    Mid::PresetManager::Install(Av::MakeEncoderList(Av::DefaultEncoderPresetFolders()));
    {
        TaskService service(TestOptions(home));
        service.SubmitTranscodeTask(Proxy(primary, {text}), batch, {});
        service.SubmitTranscodeTask(Proxy(primary, {good}), batch, {});
        service.SubmitTranscodeTask(Proxy(primary, {whole}), batch, {});
        service.SubmitTranscodeTask(cutPastEnd, batch, {});
        service.SubmitTranscodeTask(Proxy(primary, {good}, u"No Such Preset"), batch, {});
        service.SubmitTranscodeTask(Proxy(primary, {sound}), batch, {});
        service.SubmitTranscodeTask(Proxy(primary, {good}, u"Missing"), batch, {});
        const BatchOutcomeMessage& outcome = Run();
        EXPECT_EQ(outcome.status, OutcomeStatus::Failed);
        EXPECT_EQ(outcome.tasksFailed, 6u);
        EXPECT_EQ(outcome.filesCopied, 1u);
    }
    ASSERT_EQ(log.tasks.size(), 7u);
    EXPECT_EQ(log.tasks[1].status, OutcomeStatus::Succeeded);
    const auto says = [&](std::size_t task, const Fnd::WString& path, const Fnd::WString& why) {
        EXPECT_EQ(log.tasks[task].status, OutcomeStatus::Failed) << task;
        const Fnd::WString& reason = log.tasks[task].reason;
        EXPECT_NE(reason.find(path), Fnd::WString::npos) << Fnd::ToUTF8(reason);
        EXPECT_NE(reason.find(why), Fnd::WString::npos) << Fnd::ToUTF8(reason);
    };
    says(0, text, u"not a media file");
    says(2, whole, u"the clip is truncated");
    says(3, Fnd::FromUTF8(Native(source, "A004.MP4")), u"the out point 5.00 s lies past the end of the clip (1.00 s)");
    says(4, good, u"No Such Preset");
    says(5, sound, u"the clip has no video");
    says(6, good, u"the encoder no_such_encoder is not in this build of FFmpeg");
    EXPECT_EQ(Names(primary), std::vector<std::string>{"A001.mov"});
}

TEST_F(TaskServiceTranscodeTest, ResumeKeepsAFileNamedJustBeforeTheCrashAndRedoesOneThatWasNot) {
    const Fnd::WString clip = Clip("A001.MP4");
    const std::string named = Native(primary, "A001.mov");
    const std::string unnamed = Native(backup, "A001.mov");
    {
        Journal journal(TestOptions(home).journalPath);
        std::vector<FileRecord> files;
        std::vector<FileRecord> more;
        journal.AddTask(batch, MakeTranscodeRecord(TaskKind::Transcode, Proxy(primary, {clip}), {}), files);
        journal.AddTask(batch, MakeTranscodeRecord(TaskKind::Transcode, Proxy(backup, {clip}), {}), more);
        files.push_back(more.front());
        journal.MarkBatchRunning(batch, {}, home.ProjectPath());
        std::filesystem::create_directories(Fnd::ToUTF8(primary));
        std::filesystem::create_directories(Fnd::ToUTF8(backup));
        // The primary's file was renamed into place, the record of it lost with the process.
        std::ofstream(named) << "checked and named before the crash";
        files[0].state = FileState::Copying;
        files[0].temporary = FileCopier::TemporaryPathFor(named);
        files[0].finalPath = named;
        // The backup's name was journalled, its temporary never renamed.
        ASSERT_EQ(FileCopier::CreateTemporaryFile(unnamed, files[1].temporary), 0);
        files[1].state = FileState::Copying;
        files[1].finalPath = unnamed;
        journal.UpdateFiles({&files[0], &files[1]});
    }
    {
        TaskService service(TestOptions(home));
        ASSERT_EQ(service.Resume(batch, [](const std::string&) {}), TaskService::ResumeResult::Queued);
        EXPECT_EQ(RunUntilOutcome(log, batch, std::chrono::seconds(120)).status, OutcomeStatus::Succeeded);
    }
    EXPECT_EQ(Names(primary), std::vector<std::string>{"A001.mov"});
    std::ifstream kept(named);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "checked and named before the crash");
    EXPECT_EQ(Names(backup), std::vector<std::string>{"A001.mov"});
    EXPECT_EQ(Av::ProbeClip(unnamed).videoCodec, "prores");
}

} // namespace
} // namespace igd::test
