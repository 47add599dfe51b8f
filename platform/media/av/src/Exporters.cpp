#include "Exporters.h"

#include "Av/EncoderList.h"

namespace Av {

const std::vector<ExporterSpec>& KnownExporters() {
    static const std::vector<ExporterSpec> known = {
        {u"QuickTime", "mov", "mov", {"prores_ks", "dnxhd"}},
        {u"MXF OP1a", "mxf", "mxf", {"dnxhd"}},
        {u"H.264", "mp4", "mp4", {"libx264"}},
        {u"HEVC", "mp4", "mp4", {"libx265"}},
    };
    return known;
}

const ExporterSpec* FindKnownExporter(const Fnd::WString& displayName) {
    for (const ExporterSpec& spec : KnownExporters())
        if (spec.displayName == displayName)
            return &spec;
    return nullptr;
}

bool ExporterAvailable(const ExporterSpec& spec) {
    if (!HasMuxer(spec.muxer))
        return false;
    for (const std::string& encoder : spec.encoders)
        if (HasEncoder(encoder))
            return true;
    return false;
}

const Fnd::InterfaceID& ExporterModule::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{5B0C2E57-8D1A-4F63-9C1E-2A7D4E61B3F0}");
    return id;
}

Fnd::InterfaceRef<ExporterModule> ExporterModule::Create(const ExporterSpec& spec) {
    return Fnd::InterfaceRef<ExporterModule>(new ExporterModule(spec));
}

Fnd::InterfaceRef<ExporterModule> ExporterModule::From(const Fnd::InterfaceRef<Plug::IExporterModule>& exporter) {
    return Fnd::InterfaceRef<ExporterModule>::Query(exporter);
}

void ExporterModule::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void ExporterModule::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult ExporterModule::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == GetInterfaceID()) {
        AddRef();
        *out = this;
        return Fnd::kQueryOK;
    }
    if (id == Plug::IExporterModule::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<Plug::IExporterModule*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

} // namespace Av
