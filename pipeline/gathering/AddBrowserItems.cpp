#include "pipeline/gathering/AddBrowserItems.h"

#include "Browse/CardScanScope.h"
#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "Mid/Utilities.h"
#include "QL/IngestUtils.h"
#include "QL/Utilities.h"
#include "fluxcore/FileUtils.h"
#include "pipeline/gathering/ProviderFields.h"

namespace IGD {
namespace {

Fnd::WString FileName(const Fnd::WString& path) {
    Fnd::WString stem;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, &stem, &extension);
    return stem + extension;
}

Fnd::WString FileStem(const Fnd::WString& path) {
    Fnd::WString stem;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, &stem, nullptr);
    return stem;
}

Fnd::WString Absolute(const Fnd::WString& path) {
    return Mid::Utilities::AddBootVolumePath(Mid::Utilities::NormalizePathWithoutUNC(path));
}

// A ticked link: a target on another filesystem is taken where the provider's directory puts
// it; one on the same filesystem moves the directory to the link's own folder.
void ResolveLinks(CheckedItems& checked, std::string& directory) {
    for (auto& [full, name] : checked) {
        const Fnd::WString joined = Mid::Utilities::CombinePaths(Fnd::FromUTF8(directory), name);
        if (!QL::IngestUtils::IsLinkFile(joined))
            continue;
        Fnd::WString relative;
        const bool sameFilesystem = Mid::Utilities::ArePathsRelative(
            Mid::Utilities::NormalizePathWithoutUNC(full), false,
            Mid::Utilities::NormalizePathWithoutUNC(joined), false, relative);
        if (!sameFilesystem)
            full = joined;
        else
            directory = Fnd::ToUTF8(fluxcore::utility::FileUtils::GetParentPath(full));
    }
}

SelectedItemRef MakeClipItem(const Browse::ProviderWrapper* provider, const std::string& directory,
                             const std::pair<Fnd::WString, Fnd::WString>& pair, const Fnd::WString& full,
                             bool plain, const ClipSettings& clipSettings,
                             std::vector<Fnd::WString>& extras) {
    SelectedClipItemRef item(new SelectedClipItem);
    const bool folderBased = QL::Utilities::IsFolderBasedClip(full);
    const bool single = plain || !folderBased;
    item->SetIsSingleFileType(single);
    ReadProviderExtraPaths(provider, directory, pair.second, extras);
    if (!folderBased) {
        const Fnd::WString sidecar = QL::Utilities::GetXMPPath(full);
        std::vector<Fnd::WString> sidecars;
        if (Fnd::PathUtils::ExistsOnDisk(sidecar, false))
            sidecars.push_back(sidecar);
        QL::Utilities::MergePathList(extras, sidecars, {full});
    }
    Fnd::WString name;
    ReadProviderName(provider, directory, pair.second, name);
    if (single && name == FileStem(full))
        name = FileName(full);
    item->SetClipName(name.empty() ? FileName(full) : name);
    auto setting = clipSettings.find(pair.first);
    if (setting != clipSettings.end()) {
        item->SetInPoint(setting->second.inPoint);
        item->SetOutPoint(setting->second.outPoint);
        item->SetFrameRate(setting->second.frameRate);
    }
    return item;
}

} // namespace

void AddBrowserItems(IIngestDialogData& session, const CheckedItems& checkedItems,
                     const ClipSettings& clipSettings, const Browse::ProviderWrapper* provider,
                     std::string directory, RootChoice rootChoice) {
    // Every item asks the provider about the same card several times.
    const Browse::CardScanScope scans;
    const std::string identification = provider ? provider->GetIdentification() : std::string();
    CheckedItems checked = checkedItems;
    ResolveLinks(checked, directory);

    Fnd::WString root = Mid::Utilities::NormalizePathWithoutUNC(Fnd::FromUTF8(directory));
    // A card provider's entries are clips of the card: the card's own folder goes with them.
    if (provider && !provider->ShouldCheckFilter())
        root = fluxcore::utility::FileUtils::GetParentPath(root);
    root = Mid::Utilities::AddBootVolumePath(root);
    if (rootChoice == RootChoice::KeepSession)
        root = session.GetSourceRoot();
    else
        session.SetSourceRoot(root);

    const bool plain = IsPlainDirectoryProvider(identification);
    for (const auto& pair : checked) {
        const Fnd::WString full = Absolute(pair.first);
        std::vector<Fnd::WString> extras;
        SelectedItemRef item;
        if (Fnd::PathUtils::IsDirectory(full)) {
            item = new SelectedFolderItem;
            QL::Utilities::ExtendFolderPaths(full, extras);
        } else {
            item = MakeClipItem(provider, directory, pair, full, plain, clipSettings, extras);
        }
        item->SetItemPath(QL::Utilities::GetRelativePath(root, full));
        for (const Fnd::WString& extra : extras) {
            // Hidden dot files never travel.
            if (!FileName(extra).starts_with(u'.'))
                item->AddExtraPath(QL::Utilities::GetRelativePath(root, Absolute(extra)));
        }
        item->SetItemFormat(Fnd::FromUTF8(identification));
        session.AddSelectedItem(item);
    }
}

} // namespace IGD
