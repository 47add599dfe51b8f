#pragma once
#include <string>
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Fnd/UnknownObject.h"
#include "Plug/IExporterModule.h"

namespace Av {

// An output format an ingest can transcode to: one container and the encoders its presets use.
struct ExporterDefinition {
    Fnd::WString displayName;
    std::string muxer;
    std::string extension;
    std::vector<std::string> encoders;
};

// Every format this build knows, in the order the list shows them.
const std::vector<ExporterDefinition>& KnownExporters();
const ExporterDefinition* FindKnownExporter(const Fnd::WString& displayName);
// Whether the linked FFmpeg can write the format: its muxer and at least one of its encoders.
bool ExporterAvailable(const ExporterDefinition& definition);

class ExporterModule final : public Fnd::UnknownObject<ExporterModule, Plug::IExporterModule> {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    static Fnd::InterfaceRef<ExporterModule> Create(const ExporterDefinition& definition);
    // Null for an exporter of another list.
    static Fnd::InterfaceRef<ExporterModule> From(const Fnd::InterfaceRef<Plug::IExporterModule>& exporter);

    Fnd::WString GetDisplayName() const override { return definition_.displayName; }
    Fnd::WString GetFormatName() const override { return definition_.displayName; }
    const ExporterDefinition& Definition() const { return definition_; }

private:
    explicit ExporterModule(ExporterDefinition definition) : definition_(std::move(definition)) {}

    const ExporterDefinition definition_;
};

} // namespace Av
