#include "pipeline/naming/FileNameCallbacks.h"

namespace IGD {
namespace {

// Function-local so that they exist before any static initialiser of a host can call a setter.
GenerateAutomaticFileNameFunction& AutomaticFileNameSlot() {
    static GenerateAutomaticFileNameFunction function;
    return function;
}

IngestCopyOutputFileNameFunction& CopyOutputFileNameSlot() {
    static IngestCopyOutputFileNameFunction function;
    return function;
}

} // namespace

const GenerateAutomaticFileNameFunction& GetGenerateAutomaticFileNameCallback() {
    return AutomaticFileNameSlot();
}

const IngestCopyOutputFileNameFunction& GetIngestCopyOutputFileNameCallback() {
    return CopyOutputFileNameSlot();
}

void SetGenerateAutomaticFileNameCallback(const GenerateAutomaticFileNameFunction& function) {
    AutomaticFileNameSlot() = function;
}

void SetIngestCopyOutputFileNameCallback(const IngestCopyOutputFileNameFunction& function) {
    CopyOutputFileNameSlot() = function;
}

} // namespace IGD
