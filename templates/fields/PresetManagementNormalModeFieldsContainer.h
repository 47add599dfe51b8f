#pragma once
// The rows of normal mode, under a divider that shows only when there are rows.
#include <string>
#include <vector>

#include "templates/fields/PresetManagementNormalModeField.h"

namespace IGD {

class PresetManagementNormalModeFieldsContainer : public wrangler::ui::SectionViewEx {
public:
    explicit PresetManagementNormalModeFieldsContainer(std::string layoutName = "igdDivider");
    const char* UI_GetClassName() const override { return "PresetManagementNormalModeFieldsContainer"; }

    // Copies of the fields of the shown rows in order, each with its typed value as its format:
    // what Save As keeps and what the rename sample shows.
    virtual bool CollectFields(QL::PresetFieldList& fields);
    virtual PresetManagementNormalModeFieldRef CreateFieldRow(const PresetFieldRef& field) = 0;

    // One row per field, on the fields themselves, so that typed values reach the ingest.
    void RebuildRows(const QL::PresetFieldList& fields);
    // Whether a text row (custom text or metadata) holds a value.
    bool HasText() const;
    // Empties every text row.
    void ClearText();
    std::vector<PresetManagementNormalModeField*> GetRows() const;
};

} // namespace IGD
