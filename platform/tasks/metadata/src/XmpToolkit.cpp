#include "XmpToolkit.h"

#include "QL/XmpSidecarWriter.h"

namespace QL::Xmp {
namespace {

std::mutex& ToolkitMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

ToolkitLock::ToolkitLock() : lock_(ToolkitMutex()) {
    // Under the lock, so a failed start is tried again by the next caller rather than remembered.
    static bool initialised = false;
    if (!initialised) {
        if (!xmp_init())
            throw XmpSidecarError("the XMP toolkit (Exempi) could not be started");
        initialised = true;
    }
}

} // namespace QL::Xmp
