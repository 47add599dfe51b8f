#pragma once
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Browse/ProviderWrapper.h"
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "fluxmediabrowser/TranscodeClipSetting.h"

namespace IGD {

// What the user ticked: the full path, and the entry's name in the provider's content relative
// to the current directory.
using CheckedItems = std::vector<std::pair<Fnd::WString, Fnd::WString>>;
// In and out points by full path.
using ClipSettings = std::map<Fnd::WString, fluxmediabrowser::TranscodeClipSetting>;

// Where the items' paths start: the provider's directory, which becomes the session's source
// root, or the root the session already has.
enum class RootChoice { FromProvider, KeepSession };

// Adds one item per ticked entry: a folder item with every file below it, or a clip item with the
// files the provider lists for it (and, for a single file, its sidecar).
void AddBrowserItems(IIngestDialogData& session, const CheckedItems& checked,
                     const ClipSettings& clipSettings, const Browse::ProviderWrapper* provider,
                     std::string directory, RootChoice rootChoice = RootChoice::FromProvider);

} // namespace IGD
