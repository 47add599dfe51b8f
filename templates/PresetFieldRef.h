#pragma once
#include "Fnd/InterfaceRef.h"
#include "QL/IQLPreset.h"
#include "QL/IQLPresetField.h"

namespace IGD {

using PresetFieldRef = Fnd::InterfaceRef<QL::IQLPresetField>;

} // namespace IGD
