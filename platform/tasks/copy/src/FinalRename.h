#pragma once
#include <functional>
#include <string>

namespace QL::Engine {

// The last step of a copy: a verified temporary takes its final name.

// Gives from the name to unless something exists there meanwhile (EEXIST). 0 or an errno.
int RenameNoReplace(const std::string& from, const std::string& to);

// Keep both: gives from the first free name of target, target (1), target (2), ... and answers
// it in taken. 0 or an errno.
// nameTaken, when set, answers for names the filesystem would refuse as existing.
int RenameToFreeName(const std::string& from, const std::string& target, std::string& taken,
                     const std::function<bool(const std::string&)>& nameTaken = {});

} // namespace QL::Engine
