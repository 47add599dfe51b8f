#include "FileEncoderList.h"

#include "EncoderPresetWarnings.h"
#include "Exporters.h"

namespace Av {
namespace {

void Keep(const std::vector<Fnd::InterfaceRef<EncoderPresetObject>>& presets, const Fnd::WString& exporter,
          std::vector<Mid::EncoderPresetRef>& into) {
    for (const auto& preset : presets)
        if (preset->Document().exporter == exporter)
            into.emplace_back(preset.get());
}

} // namespace

FileEncoderList::FileEncoderList(const EncoderPresetFolders& folders)
    : user_(folders.user, true), system_(folders.system, false) {
    for (const ExporterDefinition& definition : KnownExporters())
        if (ExporterAvailable(definition))
            exporters_.emplace_back(ExporterModule::Create(definition).get());
}

void FileEncoderList::LoadPresets(const Mid::ExporterRef& exporter, std::vector<Mid::EncoderPresetRef>& user,
                                  std::vector<Mid::EncoderPresetRef>& system, int) {
    user.clear();
    system.clear();
    const auto own = ExporterModule::From(exporter);
    if (!own)
        return;
    std::vector<EncoderPresetWarning> warnings;
    {
        std::lock_guard lock(mutex_);
        Keep(system_.Rescan(warnings), own->Definition().displayName, system);
        Keep(user_.Rescan(warnings), own->Definition().displayName, user);
    }
    // Outside the lock, so that a handler may list presets itself.
    for (const EncoderPresetWarning& warning : warnings)
        ReportEncoderPresetWarning(warning);
}

} // namespace Av
