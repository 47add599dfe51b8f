#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "BatchRun.h"

namespace QL::Engine {

// The journal as a running batch writes it. A journal that fails (a full disk under $IGD_HOME)
// throws nothing here: the failure is remembered on the run and reported with its outcome, and no
// further source is copied, since a crash then could be neither resumed nor cleaned up.
class RunJournal {
public:
    RunJournal(Journal& journal, BatchRun& run) : journal_(journal), run_(run) {}

    void UpdateFiles(const std::vector<const FileRecord*>& files);
    void MarkTaskFinished(const RunTask& task, std::string_view outcome, std::string_view reason);
    void SetBatchState(BatchState state);

private:
    template <class Write> void Guard(Write&& write);

    Journal& journal_;
    BatchRun& run_;
};

} // namespace QL::Engine
