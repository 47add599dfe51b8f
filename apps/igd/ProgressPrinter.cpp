#include "ProgressPrinter.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "Fnd/StationUtils.h"
#include "CommandChoices.h"
#include "OutputFormat.h"
#include "QL/CopySetting.h"

namespace igd {
namespace {

using namespace QL::Engine;

constexpr int kBarWidth = 24;

std::string U(const Fnd::WString& text) {
    return Fnd::ToDisplayUTF8(text);
}

std::string FileName(const Fnd::WString& path) {
    const std::size_t slash = path.rfind(u'/');
    return U(slash == Fnd::WString::npos ? path : path.substr(slash + 1));
}

const char* FileStatusName(FileStatus status) {
    switch (status) {
    case FileStatus::Copied:
        return "copied";
    case FileStatus::Transcoded:
        return "transcoded";
    case FileStatus::Skipped:
        return "skipped";
    case FileStatus::AlreadyCopied:
        return "already copied";
    case FileStatus::Failed:
        return "failed";
    case FileStatus::Cancelled:
        return "cancelled";
    }
    return "?";
}

const char* VerifiedByName(VerifiedBy way) {
    switch (way) {
    case VerifiedBy::NotVerified:
        return "none";
    case VerifiedBy::Size:
        return "size";
    case VerifiedBy::DirectRead:
        return "direct-read";
    case VerifiedBy::DroppedCache:
        return "dropped-cache";
    }
    return "none";
}

const char* VerifiedByText(VerifiedBy way) {
    switch (way) {
    case VerifiedBy::Size:
        return "sizes compared";
    case VerifiedBy::DirectRead:
        return "read back from the disk, past the page cache (direct I/O)";
    case VerifiedBy::DroppedCache:
        return "read back after dropping its cached pages (the filesystem refuses direct I/O)";
    case VerifiedBy::NotVerified:
        break;
    }
    return "not verified";
}

std::string Seconds(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f s", value);
    return text;
}

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", value);
    return text;
}

} // namespace

ProgressPrinter::ProgressPrinter(std::ostream& out, OutputStyle style) : out_(out), style_(style) {
    Fnd::StationUtils::AddListener(kStation_TaskService, this);
}

ProgressPrinter::~ProgressPrinter() {
    Fnd::StationUtils::RemoveListener(kStation_TaskService, this);
}

void ProgressPrinter::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* progress = Fnd::MessageCast<BatchProgressMessage>(message))
        OnProgress(*progress);
    else if (const auto* file = Fnd::MessageCast<FileOutcomeMessage>(message))
        OnFile(*file);
    else if (const auto* task = Fnd::MessageCast<TaskOutcomeMessage>(message))
        OnTask(*task);
    else if (const auto* batch = Fnd::MessageCast<BatchOutcomeMessage>(message))
        OnBatch(*batch);
}

void ProgressPrinter::OnProgress(const BatchProgressMessage& progress) {
    if (style_ == OutputStyle::Json) {
        out_ << "{\"event\":\"progress\",\"batch\":" << JsonString(progress.batch.ToString())
             << ",\"filesDone\":" << progress.filesDone << ",\"filesTotal\":" << progress.filesTotal
             << ",\"bytesDone\":" << progress.bytesDone << ",\"bytesTotal\":" << progress.bytesTotal
             << ",\"currentFile\":" << JsonString(U(progress.currentFile))
             << ",\"bytesPerSecond\":" << Number(progress.bytesPerSecond)
             << ",\"paused\":" << (progress.paused ? "true" : "false");
        if (progress.framesTotal > 0)
            out_ << ",\"framesDone\":" << progress.framesDone << ",\"framesTotal\":" << progress.framesTotal
                 << ",\"mediaSecondsDone\":" << Number(progress.mediaSecondsDone)
                 << ",\"mediaSecondsTotal\":" << Number(progress.mediaSecondsTotal);
        out_ << "}\n"
             << std::flush;
        return;
    }
    if (style_ != OutputStyle::Bar)
        return;
    if (progress.framesTotal > 0) {
        // A transcode counts frames of media, not bytes of files.
        const double fraction = std::min(1.0, static_cast<double>(progress.framesDone) /
                                                  static_cast<double>(progress.framesTotal));
        std::ostringstream bar;
        bar << BarOf(fraction) << "transcoding frame " << progress.framesDone << " of "
            << progress.framesTotal << "  " << HumanDuration(progress.mediaSecondsDone) << " of "
            << HumanDuration(progress.mediaSecondsTotal);
        if (progress.paused)
            bar << "  paused";
        ShowBar(bar.str(), progress.currentFile);
        return;
    }
    const double fraction = progress.bytesTotal == 0 ? (progress.filesTotal == 0 ? 1.0 : 0.0)
                                                     : static_cast<double>(progress.bytesDone) /
                                                           static_cast<double>(progress.bytesTotal);
    std::ostringstream bar;
    bar << BarOf(fraction) << progress.filesDone << "/" << progress.filesTotal
        << " files  " << HumanBytes(progress.bytesDone) << " of " << HumanBytes(progress.bytesTotal);
    if (progress.paused) {
        bar << "  paused";
    } else if (progress.bytesPerSecond > 0) {
        const double left =
            static_cast<double>(progress.bytesTotal - progress.bytesDone) / progress.bytesPerSecond;
        bar << "  " << HumanBytes(static_cast<std::uint64_t>(progress.bytesPerSecond)) << "/s  "
            << HumanDuration(left) << " left";
    }
    ShowBar(bar.str(), progress.currentFile);
}

std::string ProgressPrinter::BarOf(double fraction) {
    const int filled = static_cast<int>(fraction * kBarWidth);
    return "[" + std::string(static_cast<std::size_t>(filled), '#') +
           std::string(static_cast<std::size_t>(kBarWidth - filled), '.') + "] " +
           std::to_string(static_cast<int>(fraction * 100)) + "%  ";
}

void ProgressPrinter::ShowBar(std::string bar, const Fnd::WString& currentFile) {
    if (!currentFile.empty())
        bar += "  " + FileName(currentFile);
    lastBar_ = std::move(bar);
    out_ << "\r\033[K" << lastBar_ << std::flush;
    barShown_ = true;
}

void ProgressPrinter::NoteVerification(const std::string& finalPath, const Check& check) {
    std::string destination;
    for (const std::string& root : destinations_)
        if (root.size() > destination.size() && finalPath.size() > root.size() &&
            finalPath.compare(0, root.size(), root) == 0 && finalPath[root.size()] == '/')
            destination = root;
    if (destination.empty())
        destination = finalPath.substr(0, finalPath.rfind('/'));
    auto entry = std::find_if(verification_.begin(), verification_.end(),
                              [&](const auto& known) { return known.first == destination; });
    if (entry == verification_.end())
        entry = verification_.insert(verification_.end(), {destination, {}});
    if (std::find(entry->second.begin(), entry->second.end(), check) == entry->second.end())
        entry->second.push_back(check);
}

void ProgressPrinter::OnFile(const FileOutcomeMessage& file) {
    if (file.status == FileStatus::Failed)
        problems_.push_back(U(file.target) + ": " + U(file.reason));
    if (file.status == FileStatus::Copied && file.verifiedBy != VerifiedBy::NotVerified)
        NoteVerification(U(file.finalPath.empty() ? file.target : file.finalPath),
                         {file.verifiedBy, QL::IngestTask::IsChecksumVerify(file.verifyMode)
                                               ? VerifyWordOf(file.verifyMode)
                                               : std::string()});
    if (style_ == OutputStyle::Json) {
        out_ << "{\"event\":\"file\",\"batch\":" << JsonString(file.batch.ToString())
             << ",\"status\":" << JsonString(FileStatusName(file.status))
             << ",\"source\":" << JsonString(U(file.source)) << ",\"target\":" << JsonString(U(file.target))
             << ",\"finalPath\":" << JsonString(U(file.finalPath))
             << ",\"verify\":" << JsonString(VerifyWordOf(file.verifyMode))
             << ",\"verifiedBy\":" << JsonString(VerifiedByName(file.verifiedBy))
             << ",\"checksum\":" << JsonString(file.checksum)
             << ",\"checksumAlgorithm\":" << JsonString(file.checksumAlgorithm) << ",\"bytes\":" << file.bytes
             << ",\"reason\":" << JsonString(U(file.reason)) << "}\n"
             << std::flush;
        return;
    }
    if (style_ == OutputStyle::Bar && file.status != FileStatus::Failed)
        return;
    std::string line = std::string(FileStatusName(file.status)) + "  " + U(file.source) + " -> " +
                       U(file.finalPath.empty() ? file.target : file.finalPath);
    if (!file.checksum.empty())
        line += "  " + file.checksumAlgorithm + " " + file.checksum;
    if (!file.reason.empty())
        line += ": " + U(file.reason);
    PrintLine(line);
}

void ProgressPrinter::OnTask(const TaskOutcomeMessage& task) {
    if (task.status == OutcomeStatus::Failed && task.filesFailed == 0)
        problems_.push_back(std::string(TaskKindName(task.kind)) + " task: " + U(task.reason));
    if (style_ == OutputStyle::Json) {
        out_ << "{\"event\":\"task\",\"batch\":" << JsonString(task.batch.ToString())
             << ",\"task\":" << task.task << ",\"kind\":" << JsonString(std::string(TaskKindName(task.kind)))
             << ",\"status\":" << JsonString(OutcomeStatusName(task.status))
             << ",\"filesFailed\":" << task.filesFailed << ",\"itemsImported\":" << task.itemsImported
             << ",\"reason\":" << JsonString(U(task.reason)) << "}\n"
             << std::flush;
        return;
    }
    // Failed files have had their own lines; a task that failed otherwise says why here.
    if (task.status == OutcomeStatus::Failed && task.filesFailed == 0)
        PrintLine(std::string(TaskKindName(task.kind)) + " task failed: " + U(task.reason));
}

void ProgressPrinter::OnBatch(const BatchOutcomeMessage& batch) {
    ++batches_;
    totals_ += batch;
    seconds_ += batch.seconds;
    if (!batch.journalProblem.empty())
        problems_.push_back("journal: " + U(batch.journalProblem));
    if (batch.status == OutcomeStatus::Cancelled)
        ++batchesCancelled_;
    if (style_ == OutputStyle::Json) {
        out_ << "{\"event\":\"batch\",\"batch\":" << JsonString(batch.batch.ToString())
             << ",\"status\":" << JsonString(OutcomeStatusName(batch.status))
             << ",\"filesCopied\":" << batch.filesCopied << ",\"filesSkipped\":" << batch.filesSkipped
             << ",\"filesAlreadyCopied\":" << batch.filesAlreadyCopied
             << ",\"filesFailed\":" << batch.filesFailed << ",\"filesCancelled\":" << batch.filesCancelled
             << ",\"tasksFailed\":" << batch.tasksFailed << ",\"itemsImported\":" << batch.itemsImported
             << ",\"bytesRead\":" << batch.bytesRead << ",\"seconds\":" << Number(batch.seconds)
             << ",\"journalProblem\":" << JsonString(U(batch.journalProblem)) << "}\n"
             << std::flush;
    }
}

void ProgressPrinter::PrintSummary() {
    ClearBar();
    if (style_ == OutputStyle::Json) {
        out_ << "{\"event\":\"summary\",\"filesCopied\":" << totals_.filesCopied
             << ",\"filesSkipped\":" << totals_.filesSkipped
             << ",\"filesAlreadyCopied\":" << totals_.filesAlreadyCopied
             << ",\"filesFailed\":" << totals_.filesFailed << ",\"tasksFailed\":" << totals_.tasksFailed
             << ",\"itemsImported\":" << totals_.itemsImported << ",\"bytesRead\":" << totals_.bytesRead
             << ",\"seconds\":" << Number(seconds_) << ",\"ok\":" << (AnyTrouble() ? "false" : "true")
             << "}\n"
             << std::flush;
        return;
    }
    std::ostringstream summary;
    summary << (batchesCancelled_ > 0 ? "Cancelled"
                : AnyTrouble()        ? "Finished with problems"
                                      : "Done")
            << " in " << (seconds_ < 60 ? Seconds(seconds_) : HumanDuration(seconds_)) << ": "
            << HumanBytes(totals_.bytesRead) << " read";
    if (seconds_ > 0.05)
        summary << " ("
                << HumanBytes(static_cast<std::uint64_t>(static_cast<double>(totals_.bytesRead) / seconds_))
                << "/s)";
    summary << ", " << totals_.filesCopied << " copied";
    if (totals_.filesAlreadyCopied > 0)
        summary << ", " << totals_.filesAlreadyCopied << " already copied";
    summary << ", " << totals_.filesSkipped << " skipped, " << totals_.filesFailed << " failed, "
            << totals_.itemsImported << " imported into the project.";
    out_ << summary.str() << "\n";
    for (const auto& [destination, checks] : verification_)
        for (const Check& check : checks)
            out_ << "  " << destination << ": " << VerifiedByText(check.way)
                 << (check.checksum.empty() ? "" : ", " + check.checksum + " digests compared") << "\n";
    for (const std::string& problem : problems_)
        out_ << "  " << problem << "\n";
    out_ << std::flush;
}

bool ProgressPrinter::AnyTrouble() const {
    return totals_.AnyFailure() || batchesCancelled_ > 0;
}

void ProgressPrinter::PrintLine(const std::string& line) {
    ClearBar();
    out_ << line << "\n";
    if (style_ == OutputStyle::Bar && !lastBar_.empty()) {
        out_ << lastBar_;
        barShown_ = true;
    }
    out_ << std::flush;
}

void ProgressPrinter::ClearBar() {
    if (barShown_)
        out_ << "\r\033[K";
    barShown_ = false;
}

} // namespace igd
