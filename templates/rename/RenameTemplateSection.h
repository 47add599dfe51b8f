#pragma once
// The "File Rename" section: the rename preset chosen for this ingest, its fields in normal mode,
// and their editing, with a sample line showing what a name would look like.
#include <memory>

#include <boost/intrusive_ptr.hpp>

#include "templates/section/PresetManagementSection.h"

namespace IGD {

class RenameTemplateSampleSection;

class RenameTemplateSection : public PresetManagementSection {
public:
    explicit RenameTemplateSection(std::shared_ptr<IngestSettingsController> settings);
    ~RenameTemplateSection() override;
    const char* UI_GetClassName() const override { return "RenameTemplateSection"; }

    // Refuses a second Custom Auto Increment with a box, and starts the first one at 1.
    void AddField(const PresetFieldRef& field) override;
    void RefreshFields(bool load, bool editCopy) override;
    // Refuses fields whose sample is no valid file name; fields that give nothing pass.
    bool ValidateFields(QL::PresetFieldList& fields) override;
    void SetEditMode(bool editing) override;
    void StoreEnabled(bool enabled) override;

    // The sample of the rows of the present mode, into the sample line.
    void UpdateSample();
    // The name the fields give, with the present time for dates and times and "File Name" for the
    // source's name.
    Fnd::WString ComposeSampleName(const QL::PresetFieldList& fields) const;

    RenameTemplateSampleSection& GetSampleSection() const { return *sample_; }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    boost::intrusive_ptr<RenameTemplateSampleSection> sample_;
};

} // namespace IGD
