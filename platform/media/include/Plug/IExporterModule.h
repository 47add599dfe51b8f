#pragma once
#include "Fnd/FndUnknown.h"
#include "Fnd/WString.h"

namespace Plug {

// A media exporter (one output container and codec family).
class IExporterModule : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    virtual Fnd::WString GetDisplayName() const = 0;
    // The format name the usage report gives, for example "H.264".
    virtual Fnd::WString GetFormatName() const = 0;
};

} // namespace Plug
