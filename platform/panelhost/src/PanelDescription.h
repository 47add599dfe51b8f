#pragma once
// A panel as its folder describes it: the manifest and the form, read and checked.
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace PanelkitManager {

enum class FieldKind { Text, Keywords, Checkbox };

struct PanelField {
    std::string key; // an XML name: it becomes an element of the answer
    Fnd::WString label;
    FieldKind kind = FieldKind::Text;
    bool required = false;
    // The namespace the value is stored under; empty for keywords.
    Fnd::WString namespaceURI;
    Fnd::WString namespacePrefix;
};

struct PanelDescription {
    std::string id;
    Fnd::WString title;
    bool modeless = false;
    int width = 0;
    int height = 0;
    std::vector<PanelField> fields; // in form order
    bool applyToAllDestinations = false; // the box's first state
    bool storeEmptyInfo = false;
};

// Why a manifest or form cannot be used, naming the file's part that is wrong.
class PanelDescriptionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Both throw PanelDescriptionError. ReadPanelForm fills the fields of a manifest already read.
PanelDescription ReadPanelManifest(std::string_view bytes);
void ReadPanelForm(std::string_view bytes, PanelDescription& panel);

// Reads manifest.xml and form.xml of a panel folder. Throws PanelDescriptionError.
PanelDescription ReadPanelFolder(const std::string& folder);

} // namespace PanelkitManager
