#pragma once
#include <atomic>
#include <cstdint>

#include "IGD/IIngestDialogData.h"

namespace IGD {

// The session: a plain passive record of one ingest request. It knows nothing of the task
// service and opens no files; all logic lives in its callers.
class IngestDialogData final : public IIngestDialogData {
public:
    IngestDialogData() = default;
    IngestDialogData(const IngestDialogData&) = delete;
    IngestDialogData& operator=(const IngestDialogData&) = delete;

    void AddRef() override;
    void Release() override;
    ~IngestDialogData() override = default;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    QL::IngestCustomData GetCustomData() const override { return customData_; }
    void SetCustomData(const QL::IngestCustomData& data) override { customData_ = data; }
    void SetImportOnly(bool importOnly) override { importOnly_ = importOnly; }
    bool IsImportOnly() const override { return importOnly_; }
    void Reset() override;
    void AddSelectedItem(const SelectedItemRef& item) override { selectedItems_.push_back(item); }
    void AddDestination(const IngestDestinationRef& destination) override {
        destinations_.push_back(destination);
    }
    void SetVerifyMode(std::uint32_t mode) override { verifyMode_ = mode; }
    std::uint32_t GetVerifyMode() const override { return verifyMode_; }
    void SetSourceRoot(const Fnd::WString& root) override { sourceRoot_ = root; }
    Fnd::WString GetSourceRoot() const override { return sourceRoot_; }
    SelectedItemList GetSelectedItems() const override { return selectedItems_; }
    DestinationList GetDestinations() const override { return destinations_; }
    void SetCopyDecisions(const CopyDecisionMap& decisions) override { copyDecisions_ = decisions; }
    CopyDecisionMap* GetCopyDecisions() override { return &copyDecisions_; }
    void SetRenameEnabled(bool enabled) override { renameEnabled_ = enabled; }
    bool IsRenameEnabled() const override { return renameEnabled_; }
    void SetRenamePreset(PresetRef preset) override { renamePreset_.swap(preset); }
    PresetRef GetRenamePreset() const override { return renamePreset_; }
    void SetMetadataEnabled(bool enabled) override { metadataEnabled_ = enabled; }
    bool IsMetadataEnabled() const override { return metadataEnabled_; }
    void SetMetadataPreset(PresetRef preset) override { metadataPreset_.swap(preset); }
    PresetRef GetMetadataPreset() const override { return metadataPreset_; }
    void SetRenameApplyScope(std::uint32_t scope) override { renameApplyScope_ = scope; }
    std::uint32_t GetRenameApplyScope() const override { return renameApplyScope_; }
    void SetMetadataApplyScope(std::uint32_t scope) override { metadataApplyScope_ = scope; }
    std::uint32_t GetMetadataApplyScope() const override { return metadataApplyScope_; }
    Fnd::InterfaceRef<Fnd::FndUnknown> GetUnknownRef() override;

private:
    std::atomic<std::uint32_t> refCount_{0};
    bool importOnly_ = true;
    QL::IngestCustomData customData_;
    SelectedItemList selectedItems_;
    DestinationList destinations_;
    std::uint32_t verifyMode_ = kVerifyModeNone;
    Fnd::WString sourceRoot_;
    CopyDecisionMap copyDecisions_;
    Fnd::WString reserved_; // kept for the record's layout; nothing reads or writes it
    bool renameEnabled_ = false;
    bool metadataEnabled_ = false;
    PresetRef renamePreset_;
    PresetRef metadataPreset_;
    std::uint32_t renameApplyScope_ = 0;
    std::uint32_t metadataApplyScope_ = 0;
};

} // namespace IGD
