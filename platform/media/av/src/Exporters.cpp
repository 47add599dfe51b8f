#include "Exporters.h"

#include "Av/EncoderList.h"

namespace Av {

const std::vector<ExporterDefinition>& KnownExporters() {
    static const std::vector<ExporterDefinition> known = {
        {u"QuickTime", "mov", "mov", {"prores_ks", "dnxhd"}},
        {u"MXF OP1a", "mxf", "mxf", {"dnxhd"}},
        {u"H.264", "mp4", "mp4", {"libx264"}},
        {u"HEVC", "mp4", "mp4", {"libx265"}},
    };
    return known;
}

const ExporterDefinition* FindKnownExporter(const Fnd::WString& displayName) {
    for (const ExporterDefinition& definition : KnownExporters())
        if (definition.displayName == displayName)
            return &definition;
    return nullptr;
}

bool ExporterAvailable(const ExporterDefinition& definition) {
    if (!HasMuxer(definition.muxer))
        return false;
    for (const std::string& encoder : definition.encoders)
        if (HasEncoder(encoder))
            return true;
    return false;
}

const Fnd::InterfaceID& ExporterModule::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{5B0C2E57-8D1A-4F63-9C1E-2A7D4E61B3F0}");
    return id;
}

Fnd::InterfaceRef<ExporterModule> ExporterModule::Create(const ExporterDefinition& definition) {
    return Fnd::InterfaceRef<ExporterModule>(new ExporterModule(definition));
}

Fnd::InterfaceRef<ExporterModule> ExporterModule::From(const Fnd::InterfaceRef<Plug::IExporterModule>& exporter) {
    return Fnd::InterfaceRef<ExporterModule>::Query(exporter);
}

} // namespace Av
