#pragma once

namespace HostApp {

// The kind of host application, set by the host at start-up (0 when it sets none). Kinds 5 and 8
// are the hosted kinds that give the destinations themselves.
int GetApplicationType();
void SetApplicationType(int kind);

bool IsRunningSprint();
void SetRunningSprint(bool running);

} // namespace HostApp
