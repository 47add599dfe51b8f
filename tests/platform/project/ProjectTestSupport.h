#pragma once
// Items of the project tests and a readable form to compare them by.
#include <string>
#include <vector>

#include "Proj/Project.h"

namespace igd::test {

// Every field, one per line, so that a failed comparison shows what differs.
std::string Describe(const Proj::ProjectItem& item);
std::string Describe(const std::vector<Proj::ProjectItem>& items);

Proj::ProjectItem MakeItem(const Fnd::WString& path, const Fnd::WString& bin = {});

} // namespace igd::test
