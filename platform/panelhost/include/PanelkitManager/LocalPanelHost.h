#pragma once
// The host of panels kept as folders on this machine. A panel folder holds manifest.xml
//     <panel id="..." title="..." mode="modal|modeless" width="420" height="300"/>
// and form.xml
//     <form applyToAllDestinations="true" storeEmptyInfo="false">
//       <namespace uri="..." prefix="...">
//         <field key="scene" label="Scene" kind="text|checkbox" required="true"/>
//       </namespace>
//       <field key="keywords" label="Keywords" kind="keywords"/>
//     </form>
#include <memory>
#include <string>
#include <vector>

#include "PanelkitManager/PanelHost.h"

namespace PanelkitManager {

// Roots searched in order; within a root, panel folders by name. The first panel of an id wins.
struct PanelFolders {
    std::vector<std::string> roots;
};

// The site's panels ($IGD_HOME/site/panels, else /etc/igd/panels), then the user's
// ($IGD_HOME/panels). A panel asks before every ingest, so none runs that a site or a user did not
// put there: the shipped panels are copied into one of these folders to be used.
PanelFolders DefaultPanelFolders();

// Where the shipped panels are: $IGD_SHIPPED_PANELS, else share/igd/panels beside the installed
// library, else the source tree's resources/panels.
std::string ShippedPanelsFolder();

// Reads the panels once. A panel that cannot be read is skipped with one line on stderr naming
// its folder and why.
std::shared_ptr<PanelHost> MakeLocalPanelHost(const PanelFolders& folders);

} // namespace PanelkitManager
