#pragma once
#include "Fnd/Date.h"
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Makes a session ready to ingest one file: its items (through the providers when gather is true,
// else or failing that the file itself), and the copy decisions of its destinations. Stops early,
// leaving the session as it got it, when the file cannot be taken or the user gives up.
void PrepareSessionForFile(const Fnd::WString& path, IIngestDialogData& session, const Fnd::Date& date,
                           bool gather, bool forceNames);

} // namespace IGD
