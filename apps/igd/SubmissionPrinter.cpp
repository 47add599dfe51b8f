#include "SubmissionPrinter.h"

#include <algorithm>
#include <set>
#include <utility>

#include "CommandChoices.h"
#include "QL/IngestMessages.h"

namespace igd {
namespace {

std::string U(const Fnd::WString& text) {
    return Fnd::ToDisplayUTF8(text);
}

const char* YesNo(bool value) {
    return value ? "yes" : "no";
}

const char* ActionName(std::int32_t action) {
    switch (action) {
    case QL::kCopyActionNone:
        return "new";
    case QL::kCopyActionSkip:
        return "skip";
    case QL::kCopyActionKeepBoth:
        return "keep both";
    case QL::kCopyActionReplace:
        return "replace";
    default:
        return "?";
    }
}

void PrintImportItems(std::ostream& out, const QL::IngestItemMap& items, const char* indent) {
    for (const auto& [path, item] : items) {
        out << indent << "import " << U(path) << " as \"" << U(item->name) << "\"";
        // A clip's own file stands among its extra paths too; it is no side file of itself.
        const auto sideFiles = std::count_if(item->extraPaths.begin(), item->extraPaths.end(),
                                             [&own = path](const Fnd::WString& extra) { return extra != own; });
        if (sideFiles != 0)
            out << " with " << sideFiles << " side file(s)";
        out << "\n";
    }
}

void PrintCustomData(std::ostream& out, const QL::IngestCustomData& data) {
    for (const auto& set : data.metadataSets) {
        out << "  metadata \"" << U(set->presetName) << "\" (" << U(set->schemaNamespace) << ")\n";
        for (const auto& [key, value] : set->values)
            out << "    " << U(key) << " = " << U(value) << "\n";
    }
}

} // namespace

void SubmissionPrinter::SubmitCopyTask(const QL::IngestTask::CopySetting& setting,
                                       const fluxcore::utility::Guid& batch,
                                       const QL::IngestCustomData& data) {
    ++taskCount_;
    out_ << "copy task, batch " << batch.ToString() << ", verify " << VerifyWordOf(setting.verifyMode)
         << ", add to project " << YesNo(setting.addToProject) << "\n";
    for (const auto& unit : setting.units) {
        // The service copies a file once however often the plan names it; so does this listing.
        std::set<std::pair<Fnd::WString, Fnd::WString>> listed;
        for (const QL::CopyEntry& entry : unit->entries)
            if (listed.emplace(entry.source, entry.target).second)
                out_ << "  copy " << U(entry.source) << " -> " << U(entry.target) << " ["
                     << ActionName(entry.action) << "]\n";
        for (const auto& [target, name] : unit->renames)
            out_ << "  rename " << U(target) << " to \"" << U(name) << "\"\n";
        PrintImportItems(out_, unit->importItems, "  ");
    }
    PrintCustomData(out_, data);
}

void SubmissionPrinter::PrintTranscode(const char* kind, const QL::IngestTask::TranscodeSetting& setting,
                                       const fluxcore::utility::Guid& batch,
                                       const QL::IngestCustomData& data) {
    ++taskCount_;
    out_ << kind << " task, batch " << batch.ToString() << ", to " << U(setting.outputPath) << ", preset \""
         << U(setting.presetName) << "\", add to project " << YesNo(setting.addToProject) << "\n";
    if (setting.concatenate)
        out_ << "  stitched name \"" << U(setting.concatenateName) << "\"\n";
    for (const auto& clip : setting.clips)
        out_ << "  clip " << U(clip.path) << (clip.useOutputName ? " as \"" + U(clip.name) + "\"" : "")
             << "\n";
    PrintCustomData(out_, data);
}

void SubmissionPrinter::SubmitTranscodeTask(const QL::IngestTask::TranscodeSetting& setting,
                                            const fluxcore::utility::Guid& batch,
                                            const QL::IngestCustomData& data) {
    PrintTranscode("transcode", setting, batch, data);
}

void SubmissionPrinter::SubmitConcatenateTask(const QL::IngestTask::TranscodeSetting& setting,
                                              const fluxcore::utility::Guid& batch,
                                              const QL::IngestCustomData& data) {
    PrintTranscode("concatenate", setting, batch, data);
}

void SubmissionPrinter::SubmitImportTask(const QL::IngestTask::ImportSetting& setting,
                                         const fluxcore::utility::Guid& batch,
                                         const QL::IngestCustomData& data) {
    ++taskCount_;
    out_ << "import task, batch " << batch.ToString() << "\n";
    PrintImportItems(out_, setting.importItems, "  ");
    PrintCustomData(out_, data);
}

void SubmissionPrinter::SubmitUpdateMetadataTask(const QL::IngestTask::UpdateMetadataSetting& setting,
                                                 const fluxcore::utility::Guid& batch,
                                                 const QL::IngestCustomData& data) {
    ++taskCount_;
    out_ << "update metadata task, batch " << batch.ToString() << ", add to project "
         << YesNo(setting.addToProject) << "\n";
    for (const auto& [path, name] : setting.renames)
        out_ << "  name " << U(path) << " as \"" << U(name) << "\"\n";
    PrintImportItems(out_, setting.importItems, "  ");
    PrintCustomData(out_, data);
}

bool SubmissionPrinter::IsPathInCopyList(const Fnd::WString&) const {
    return false;
}

void SubmissionPrinter::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* start = Fnd::MessageCast<QL::StartIngestMessage>(message))
        out_ << "start batch " << start->batch.ToString() << "\n";
    else if (Fnd::MessageCast<QL::PauseIngestMessage>(message))
        out_ << "pause\n";
    else if (Fnd::MessageCast<QL::ResumeIngestMessage>(message))
        out_ << "resume\n";
    else if (Fnd::MessageCast<QL::CancelIngestMessage>(message))
        out_ << "cancel\n";
}

} // namespace igd
