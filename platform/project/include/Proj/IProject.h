#pragma once
#include <string>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"

namespace Proj {

// The project open in the host, as the library sees it: the project's bins and items are reached
// through the task service, so only its identity is asked here.
class IProject : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    virtual Fnd::WString GetName() const = 0;
};

// The project kept in that file, named as the user names the file: its stem, without folder or
// extension.
Fnd::InterfaceRef<IProject> MakeProjectOfFile(const std::string& utf8Path);

} // namespace Proj
