#pragma once
#include "Av/EncoderList.h"

namespace Av {

void ReportEncoderPresetWarning(const EncoderPresetWarning& warning);

} // namespace Av
