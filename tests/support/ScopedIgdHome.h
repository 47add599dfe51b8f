#pragma once
// $IGD_HOME points into a fresh temporary tree for the object's life, then is given back.
#include <string>

#include "support/TempTree.h"

namespace igd::test {

class ScopedIgdHome {
public:
    ScopedIgdHome();
    ~ScopedIgdHome();
    std::string Path() const { return tree_.NativePath("home"); }
    std::string ProjectPath() const { return Path() + "/project.igdproj"; }
    // A file below the home, made with its folders.
    std::string MakeFile(const std::string& relative, const std::string& content) {
        return Fnd::ToUTF8(tree_.MakeFile("home/" + relative, content));
    }

private:
    TempTree tree_;
    std::string previous_;
    bool hadPrevious_ = false;
};

} // namespace igd::test
