#pragma once
#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "Fnd/Listener.h"
#include "QL/Engine/TaskServiceMessages.h"

namespace igd {

enum class OutputStyle {
    Bar,   // a terminal: one progress line redrawn in place, failures printed above it
    Lines, // a pipe or a file: one line per file as it is settled
    Json,  // one JSON object per line, for programs
};

// Draws what the task service reports while `igd ingest` or `igd resume` runs, and the summary at
// the end. Listens to the service's station for its life.
class ProgressPrinter : public Fnd::Listener {
public:
    ProgressPrinter(std::ostream& out, OutputStyle style);
    ~ProgressPrinter() override;
    ProgressPrinter(const ProgressPrinter&) = delete;
    ProgressPrinter& operator=(const ProgressPrinter&) = delete;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    // The destination folders of the run; a copy outside them is reported under its own folder.
    void SetDestinations(std::vector<std::string> destinations) { destinations_ = std::move(destinations); }
    void PrintSummary();
    // Something failed or was cancelled: the command must not answer success.
    bool AnyTrouble() const;
    std::uint64_t BatchesEnded() const { return batches_; }

private:
    void OnProgress(const QL::Engine::BatchProgressMessage& progress);
    // "[####....] NN%  " for the share done.
    static std::string BarOf(double fraction);
    // Shows the bar in place of the last, with the file being read or transcoded.
    void ShowBar(std::string bar, const Fnd::WString& currentFile);
    void OnFile(const QL::Engine::FileOutcomeMessage& file);
    void OnTask(const QL::Engine::TaskOutcomeMessage& task);
    void OnBatch(const QL::Engine::BatchOutcomeMessage& batch);
    // Prints a whole line, above the bar when there is one.
    void PrintLine(const std::string& line);
    void ClearBar();

    std::ostream& out_;
    OutputStyle style_;
    bool barShown_ = false;
    std::string lastBar_;

    std::uint64_t batches_ = 0;
    QL::Engine::BatchCounters totals_;
    std::uint64_t batchesCancelled_ = 0;
    double seconds_ = 0;
    std::vector<std::string> problems_;
    std::vector<std::string> destinations_;
    // How a copy was checked: read back, and with which checksum ("" for none).
    struct Check {
        QL::Engine::VerifiedBy way;
        std::string checksum;
        bool operator==(const Check&) const = default;
    };
    // Per destination, each way its copies were checked, in the order first met.
    std::vector<std::pair<std::string, std::vector<Check>>> verification_;

    void NoteVerification(const std::string& finalPath, const Check& check);
};

} // namespace igd
