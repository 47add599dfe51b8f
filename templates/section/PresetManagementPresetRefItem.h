#pragma once
#include <boost/intrusive_ptr.hpp>

#include "IGD/IIngestDialogData.h"
#include "fluxcore/RefCountedObject.h"

namespace IGD {

// What one row of the preset popup stands for; a null preset is "<None>".
class PresetManagementPresetRefItem : public fluxcore::utility::RefCountedObject {
public:
    explicit PresetManagementPresetRefItem(PresetRef preset) : preset_(std::move(preset)) {}
    const PresetRef& GetPreset() const { return preset_; }

private:
    PresetRef preset_;
};

using PresetManagementPresetRefItemRef = boost::intrusive_ptr<PresetManagementPresetRefItem>;

} // namespace IGD
