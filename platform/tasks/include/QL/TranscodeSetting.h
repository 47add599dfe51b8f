#pragma once
#include <cstdint>
#include <list>

#include <boost/function.hpp>

#include "EncoderHost/IPreset.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "Plug/IExporterModule.h"
#include "fluxmediatypes/MediaTypes.h"

namespace QL::IngestTask {

// One source of a transcode.
struct TranscodeClipEntry {
    Fnd::WString path;
    bool useOutputName = false; // name holds a rename result
    Fnd::WString name;          // empty for folder content and for concatenation
    fluxmediatypes::Time inPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::FrameRate frameRate = fluxmediatypes::kFrameRate_Zero;
};

// A transcode or concatenate task; also what a destination holds as its transcode section.
// Copying copies every field, the clips included.
struct TranscodeSetting {
    Fnd::InterfaceRef<EncoderHost::IPreset> preset;
    Fnd::InterfaceRef<Plug::IExporterModule> exporter;
    Fnd::WString presetName;
    Fnd::WString exporterName;
    bool enabled = false;
    std::list<TranscodeClipEntry> clips;
    Fnd::WString sourceRoot;
    Fnd::WString outputPath;
    bool addToProject = false;
    bool concatenate = false;
    Fnd::WString concatenateName;
    boost::function<void(bool)> nameErrorCallback;
    std::uint64_t reserved = 0;
};

} // namespace QL::IngestTask
