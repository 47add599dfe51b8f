#include "pipeline/naming/RenameSampleText.h"

#include "Fnd/LocalTimeFormatter.h"
#include "fluxcore/ZString.h"
#include "pipeline/naming/OutputNameBuilder.h"

namespace IGD {

Fnd::WString BuildRenameSampleText(const QL::PresetFieldList& fields, std::uint32_t startNumber,
                                   Fnd::Date now) {
    Fnd::LocalTimeFormatter formatter;
    Fnd::WString sample;
    for (const auto& field : fields) {
        switch (field->GetType()) {
        case QL::kQLFieldAutoIncrement:
        case QL::kQLFieldCustomText:
            sample += field->GetValue();
            break;
        case QL::kQLFieldCreationDate:
        case QL::kQLFieldIngestDate:
        case QL::kQLFieldCreationTime:
        case QL::kQLFieldIngestTime:
            sample += formatter.Format(now, field->GetValue());
            break;
        case QL::kQLFieldFileName:
            sample +=
                fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/RenameEdit_FileNameStatic=File Name");
            break;
        case QL::kQLFieldUserDefinedAutoIncrement:
            sample += FormatCounterValue(startNumber, 0, field->GetFormat());
            break;
        case QL::kQLFieldMetadata:
        default:
            break;
        }
    }
    return sample;
}

} // namespace IGD
