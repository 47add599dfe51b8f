#include "TemplateValues.h"

#include "Assignment.h"

namespace igd {

std::string SetTemplateValues(const std::vector<std::string>& assignments,
                              const std::vector<IGD::PresetRef>& templates) {
    for (const std::string& assignment : assignments) {
        const auto split = SplitAssignment(assignment);
        if (!split)
            return "--set wants KEY=VALUE, not \"" + assignment + "\"";
        const Fnd::WString key = Fnd::FromUTF8(split->first);
        const Fnd::WString value = Fnd::FromUTF8(split->second);
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
            return "no field of the chosen templates has the key \"" + split->first + "\"";
    }
    return {};
}

} // namespace igd
