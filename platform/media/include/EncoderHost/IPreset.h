#pragma once
#include "Fnd/FndUnknown.h"
#include "Fnd/WString.h"

namespace EncoderHost {

// An encoder preset of an exporter: the settings of one output format.
class IPreset : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    virtual Fnd::WString GetName() const = 0;
};

} // namespace EncoderHost
