#include "SourceGroups.h"

#include "QL/CopySetting.h"

namespace QL::Engine {

std::vector<SourceGroup>
GroupBySource(const std::vector<FileRecord>& files,
              const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask) {
    std::vector<SourceGroup> groups;
    // Most sources have one verify mode; the rare second one gets a group of its own.
    std::unordered_map<Fnd::WString, std::vector<std::size_t>> groupsOfSource;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const FileRecord& file = files[i];
        if (file.state != FileState::Pending)
            continue;
        const auto mode = verifyModeOfTask.find(file.task);
        // Outputs of transcodes are written by the transcoder, not copied.
        if (mode == verifyModeOfTask.end())
            continue;
        const std::uint32_t verifyMode = mode->second;

        std::vector<std::size_t>& candidates = groupsOfSource[file.source];
        SourceGroup* group = nullptr;
        for (std::size_t index : candidates)
            if (groups[index].verifyMode == verifyMode)
                group = &groups[index];
        if (!group) {
            candidates.push_back(groups.size());
            group = &groups.emplace_back(SourceGroup{file.source, verifyMode, {}});
        }
        group->files.push_back(i);
    }
    return groups;
}

} // namespace QL::Engine
