#pragma once
// What the tests of the plan share: a fixture that owns every piece of global state the plan
// reads (settings, task service, interaction driver, host kind, document manager, callbacks, usage logger,
// posted messages) and resets it, builders for sessions, and short views of the records so that
// one comparison shows a whole unit and a failure shows what differs.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "IGD/IIngestDialogData.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/CopySetting.h"
#include "support/RecordingTaskService.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
#include "settings/IngestSettingsController.h"

namespace igd::test {

using Strings = std::vector<std::string>;
using NameMap = std::map<std::string, std::string>;
using KindList = std::vector<TaskKind>;

// Resets all global state the plan reads, before and after each test.
class PlanTest : public ::testing::Test {
protected:
    PlanTest();
    ~PlanTest() override;

    static IGD::IngestDialogDataRef NewSession();
    // A session whose source root is the folder "src" of the tree, with a single-file clip for
    // each path, its file made under "src".
    IGD::IngestDialogDataRef SessionWithClips(std::initializer_list<std::string_view> itemPaths = {});

    // A single-file clip (or a folder-based one with single false) under the session's root.
    static IGD::SelectedClipItemRef AddClip(IGD::IIngestDialogData& session, std::string_view itemPath,
                                            std::initializer_list<std::string_view> extras = {},
                                            std::string_view outputName = {}, bool single = true);
    static IGD::SelectedFolderItemRef AddFolder(IGD::IIngestDialogData& session, std::string_view itemPath,
                                                std::initializer_list<std::string_view> extras);
    // An enabled copy destination at the tree's folder, made if missing.
    IGD::IngestDestinationRef AddDestination(IGD::IIngestDialogData& session, std::string_view folder,
                                             bool primary, bool applyRename = false,
                                             bool applyMetadata = false);
    // Gives the destination a transcode setting that is on.
    static std::shared_ptr<QL::IngestTask::TranscodeSetting> Transcode(IGD::IngestDestination& destination,
                                                                       bool concatenate = false);

    // Runs the copy decisions into the session; answers their result.
    static bool Decide(IGD::IIngestDialogData& session);
    // Copy decisions, then the plan, under batch_.
    void DecideAndRun(const IGD::IngestDialogDataRef& session);

    // Metadata template values and panel answers, as the finish handler would set them.
    static QL::IngestCustomData CustomDataWithMetadata();

    // Each box shown from the first'th on, as "title: text".
    Strings BoxTexts(std::size_t first = 0) const {
        Strings texts;
        for (std::size_t i = first; i < ui->Boxes().size(); ++i)
            texts.push_back(Fnd::ToUTF8(ui->Boxes()[i].title + u": " + ui->Boxes()[i].text));
        return texts;
    }

    static Strings OutputNames(const IGD::IIngestDialogData& session) {
        Strings names;
        for (const auto& item : session.GetSelectedItems())
            names.push_back(Fnd::ToUTF8(item->GetOutputName()));
        return names;
    }

    KindList Kinds() const {
        KindList kinds;
        for (const RecordedTask& task : tasks->Tasks())
            kinds.push_back(task.kind);
        return kinds;
    }
    // The index-th copy task and one of its units.
    const QL::IngestTask::CopySetting& CopyAt(std::size_t index) const {
        for (const RecordedTask& task : tasks->Tasks())
            if (task.kind == TaskKind::Copy && index-- == 0)
                return task.Copy();
        throw std::out_of_range("no such copy task");
    }
    static const QL::IngestTask::CopyUnit& UnitAt(const QL::IngestTask::CopySetting& setting,
                                                  std::size_t index = 0) {
        if (index >= setting.units.size())
            throw std::out_of_range("no such copy unit");
        return **std::next(setting.units.begin(), static_cast<std::ptrdiff_t>(index));
    }

    // A path below the tree as the tests write it ("p/A001.MOV"); any other path unchanged.
    std::string Rel(const Fnd::WString& path) const {
        const Fnd::WString root = tree.Path() + u"/";
        return Fnd::ToUTF8(path.compare(0, root.size(), root) == 0 ? path.substr(root.size()) : path);
    }
    // Each entry of the unit as "source > target", and their actions.
    Strings Moves(const QL::IngestTask::CopyUnit& unit) const {
        Strings moves;
        for (const QL::CopyEntry& entry : unit.entries)
            moves.push_back(Rel(entry.source) + " > " + Rel(entry.target));
        return moves;
    }
    static std::vector<int> Actions(const QL::IngestTask::CopyUnit& unit) {
        std::vector<int> actions;
        for (const QL::CopyEntry& entry : unit.entries)
            actions.push_back(entry.action);
        return actions;
    }
    // Path to the name the project shows, for import items and for rename maps. An item filed
    // under a key other than its own path shows both.
    NameMap Named(const QL::IngestItemMap& items) const {
        NameMap named;
        for (const auto& [path, item] : items)
            named[Rel(path)] = Fnd::ToUTF8(item->name) + (item->path == path ? "" : " at " + Rel(item->path));
        return named;
    }
    NameMap Named(const std::map<Fnd::WString, Fnd::WString>& renames) const {
        NameMap named;
        for (const auto& [path, name] : renames)
            named[Rel(path)] = Fnd::ToUTF8(name);
        return named;
    }

    // The process-wide settings, back at their defaults for every test.
    IGD::IngestSettingsController& settings;
    ScopedTaskService tasks;
    ScopedInteractionDriver ui;
    TempTree tree;
    const fluxcore::utility::Guid batch_ = fluxcore::utility::Guid::CreateUnique();

private:
    static void ResetGlobalState();
};

} // namespace igd::test
