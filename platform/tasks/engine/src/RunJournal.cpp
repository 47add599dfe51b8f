#include "RunJournal.h"

namespace QL::Engine {

template <class Write> void RunJournal::Guard(Write&& write) {
    try {
        write();
    } catch (const JournalError& error) {
        if (run_.journalProblem.empty())
            run_.journalProblem = error.what();
    }
}

void RunJournal::UpdateFiles(const std::vector<const FileRecord*>& files) {
    std::vector<const FileRecord*> recorded;
    recorded.reserve(files.size());
    for (const FileRecord* file : files)
        if (file->id > 0)
            recorded.push_back(file);
    Guard([&] { journal_.UpdateFiles(recorded); });
}

void RunJournal::MarkTaskFinished(const RunTask& task, std::string_view outcome, std::string_view reason) {
    if (task.id > 0)
        Guard([&] { journal_.MarkTaskFinished(task.id, outcome, reason); });
}

void RunJournal::SetBatchState(BatchState state) {
    Guard([&] { journal_.SetBatchState(run_.batch, state); });
}

} // namespace QL::Engine
