#include "pipeline/naming/OutputNames.h"

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "pipeline/naming/FileCreationTime.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "pipeline/naming/OutputNameBuilder.h"

namespace IGD {
namespace {

// A clip the browser shows under a name of its own (a camera's clip name) is renamed from that
// name; otherwise from the file or folder it is stored as.
Fnd::WString BaseNameOf(const SelectedItem& item) {
    const Fnd::WString& itemPath = item.GetItemPath();
    if (const auto* clip = dynamic_cast<const SelectedClipItem*>(&item)) {
        const Fnd::WString& clipName = clip->GetClipName();
        if (!clipName.empty() && clipName != Fnd::PathUtils::FileNameOf(itemPath))
            return clipName;
    }
    return Fnd::PathUtils::StemOf(Fnd::PathUtils::RemoveTrailingSlash(itemPath));
}

} // namespace

void GenerateOutputNames(IIngestDialogData& session, Fnd::Date date, std::uint32_t startNumber,
                         std::uint32_t firstCounter) {
    const PresetRef preset = session.GetRenamePreset();
    if (!preset)
        return;
    const QL::PresetFieldList fields = preset->GetFields();
    if (fields.empty())
        return;

    OutputNameBuilder builder(fields, startNumber);
    const NormalizedRoot root(session.GetSourceRoot());
    const Fnd::Date now = Fnd::Date::Now();
    std::uint32_t counter = firstCounter;
    for (const SelectedItemRef& item : session.GetSelectedItems()) {
        // An unreadable file is named as if made now rather than stopping the ingest over a date.
        const Fnd::Date fileDate = ReadFileCreationTime(root.ItemPath(*item)).value_or(now);
        item->SetOutputName(builder.Build(date, fileDate, BaseNameOf(*item), counter));
    }

    for (const IngestDestinationRef& destination : session.GetDestinations()) {
        const auto setting = destination->GetTranscodeSetting();
        if (!setting || !setting->concatenate)
            continue;
        // The setting is shared with the destination, so the stitch task sees the new name.
        std::uint32_t ownCounter = 1;
        setting->concatenateName =
            Fnd::Trim(builder.Build(date, date, setting->concatenateName, ownCounter), u" \t");
    }
}

void GenerateOutputNamesNow(IIngestDialogData& session, std::uint32_t startNumber) {
    GenerateOutputNames(session, Fnd::Date::Now(), startNumber);
}

} // namespace IGD
