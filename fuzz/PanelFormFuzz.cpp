// A panel's manifest and form, as any site or user may drop them in a panels folder, and the
// answer written from values a person typed: whatever the form, a form that is read gives an
// answer that reads back as OK.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "PanelAnswer.h"
#include "PanelDescription.h"
#include "PanelkitManager/PanelkitManager.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    using namespace PanelkitManager;
    try {
        ReadPanelManifest(bytes);
    } catch (const PanelDescriptionError&) {
    }
    PanelDescription panel;
    try {
        ReadPanelForm(bytes, panel);
    } catch (const PanelDescriptionError&) {
        return 0;
    }
    const std::vector<Fnd::WString> values(panel.fields.size(), Fnd::FromUTF8(Fnd::ToUTF8(Fnd::FromUTF8(bytes))));
    const Fnd::WString answer = WriteMinimumMetadataAnswer(panel, values, true);
    if (GetInfoForProperty(answer, "status", false) != u"OK")
        std::abort();
    return 0;
}
