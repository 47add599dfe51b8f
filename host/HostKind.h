#pragma once
// What the plan needs to know about the host around it.

namespace IGD {

// Hosts of kinds 5 and 8 give the destinations themselves: no questions, no usage report.
bool IsKilnHosted();

// The open project lives on a collaboration server. False without a document manager.
bool IsVaultMode();

} // namespace IGD
