// The site's ingest-settings.xml, read from $IGD_HOME/site as every run of igd reads it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "FuzzScratch.h"
#include "QL/Utilities.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool homed = [] {
        ::setenv("IGD_HOME", igd::fuzz::ScratchFolder().c_str(), 1);
        return true;
    }();
    (void)homed;
    igd::fuzz::WriteScratchFile("site/ingest-settings.xml", data, size);
    QL::Utilities::GetConfigurableIngestSettings();
    return 0;
}
