#pragma once
// The panel's answer: an XML document whose minimumMetadata element holds namespaces of values,
// keywords and two flags.
#include "Fnd/WString.h"
#include "QL/MetadataFieldSet.h"

namespace IGD {

// True when the answer's status says the panel was confirmed ("OK" in any case of A to Z).
bool IsMinimumMetadataAnswerOK(Fnd::WStringView data);

// Adds what the document holds to result. A document that cannot be read, or has no
// minimumMetadata element, adds nothing; that is not an error.
void ReadMinimumMetadataAnswer(Fnd::WStringView data, QL::MinimumMetadataResult& result);

} // namespace IGD
