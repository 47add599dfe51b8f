#include "TemplateValues.h"

namespace igd {

std::string SetTemplateValues(const std::vector<std::string>& assignments,
                              const std::vector<IGD::PresetRef>& templates) {
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos || equals == 0)
            return "--set wants KEY=VALUE, not \"" + assignment + "\"";
        const Fnd::WString key = Fnd::FromUTF8(assignment.substr(0, equals));
        const Fnd::WString value = Fnd::FromUTF8(assignment.substr(equals + 1));
        bool found = false;
        for (const IGD::PresetRef& preset : templates) {
            if (!preset)
                continue;
            for (const auto& field : preset->GetFields()) {
                if (field->GetKey() != key)
                    continue;
                field->SetValue(value);
                found = true;
            }
        }
        if (!found)
            return "no field of the chosen templates has the key \"" + assignment.substr(0, equals) + "\"";
    }
    return {};
}

} // namespace igd
