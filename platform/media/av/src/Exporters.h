#pragma once
#include <atomic>
#include <string>
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Plug/IExporterModule.h"

namespace Av {

// An output format an ingest can transcode to: one container and the encoders its presets use.
struct ExporterSpec {
    Fnd::WString displayName;
    std::string muxer;
    std::string extension;
    std::vector<std::string> encoders;
};

// Every format this build knows, in the order the list shows them.
const std::vector<ExporterSpec>& KnownExporters();
const ExporterSpec* FindKnownExporter(const Fnd::WString& displayName);
// Whether the linked FFmpeg can write the format: its muxer and at least one of its encoders.
bool ExporterAvailable(const ExporterSpec& spec);

class ExporterModule final : public Plug::IExporterModule {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    static Fnd::InterfaceRef<ExporterModule> Create(const ExporterSpec& spec);
    // Null for an exporter of another list.
    static Fnd::InterfaceRef<ExporterModule> From(const Fnd::InterfaceRef<Plug::IExporterModule>& exporter);

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    Fnd::WString GetDisplayName() const override { return spec_.displayName; }
    Fnd::WString GetFormatName() const override { return spec_.displayName; }
    const ExporterSpec& Spec() const { return spec_; }

private:
    explicit ExporterModule(ExporterSpec spec) : spec_(std::move(spec)) {}

    std::atomic<int> count_{0};
    const ExporterSpec spec_;
};

} // namespace Av
