#pragma once
#include <cstdint>
#include <map>
#include <vector>

#include "Fnd/FndUnknown.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "IGD/IngestDestination.h"
#include "IGD/SelectedItem.h"
#include "QL/IQLPreset.h"
#include "QL/IngestCustomData.h"

namespace IGD {

using SelectedItemList = std::vector<SelectedItemRef>;
using DestinationList = std::vector<IngestDestinationRef>;
// Relative path to copy action.
using CopyActionMap = std::map<Fnd::WString, std::int32_t>;
// Keyed by destination identity: a copy of a destination is another key.
using CopyDecisionMap = std::map<IngestDestinationRef, CopyActionMap>;
using PresetRef = Fnd::InterfaceRef<QL::IQLPreset>;

inline constexpr std::uint32_t kVerifyModeNone = 0xFFFFFFFFu;

// The record of one ingest request: what, where, how, and the answers about existing files.
class IGD_EXPORT IIngestDialogData : public Fnd::FndUnknown {
public:
    // {38645337-A23D-4652-9C78-542163697F95}
    static const Fnd::InterfaceID& GetInterfaceID();

    virtual QL::IngestCustomData GetCustomData() const = 0;
    virtual void SetCustomData(const QL::IngestCustomData& data) = 0;
    virtual void SetImportOnly(bool importOnly) = 0;
    virtual bool IsImportOnly() const = 0;
    // importOnly becomes true and the items and destinations are emptied; nothing else changes.
    virtual void Reset() = 0;
    virtual void AddSelectedItem(const SelectedItemRef& item) = 0;
    virtual void AddDestination(const IngestDestinationRef& destination) = 0;
    virtual void SetVerifyMode(std::uint32_t mode) = 0;
    virtual std::uint32_t GetVerifyMode() const = 0;
    virtual void SetSourceRoot(const Fnd::WString& root) = 0;
    virtual Fnd::WString GetSourceRoot() const = 0;
    // Copies, so a caller can walk the list while the session changes.
    virtual SelectedItemList GetSelectedItems() const = 0;
    virtual DestinationList GetDestinations() const = 0;
    virtual void SetCopyDecisions(const CopyDecisionMap& decisions) = 0;
    // The map in place, not a copy.
    virtual CopyDecisionMap* GetCopyDecisions() = 0;
    virtual void SetRenameEnabled(bool enabled) = 0;
    virtual bool IsRenameEnabled() const = 0;
    virtual void SetRenamePreset(PresetRef preset) = 0;
    virtual PresetRef GetRenamePreset() const = 0;
    virtual void SetMetadataEnabled(bool enabled) = 0;
    virtual bool IsMetadataEnabled() const = 0;
    virtual void SetMetadataPreset(PresetRef preset) = 0;
    virtual PresetRef GetMetadataPreset() const = 0;
    // 0: rename on all destinations; anything else: on the primary only.
    virtual void SetRenameApplyScope(std::uint32_t scope) = 0;
    virtual std::uint32_t GetRenameApplyScope() const = 0;
    virtual void SetMetadataApplyScope(std::uint32_t scope) = 0;
    virtual std::uint32_t GetMetadataApplyScope() const = 0;
    virtual Fnd::InterfaceRef<Fnd::FndUnknown> GetUnknownRef() = 0;
};

using IngestDialogDataRef = Fnd::InterfaceRef<IIngestDialogData>;

// Makes a new, empty session holding one reference, handed to the caller; query it for
// IIngestDialogData.
IGD_EXPORT Fnd::InterfaceRef<Fnd::FndUnknown> CreateIngestDialogData();

} // namespace IGD
