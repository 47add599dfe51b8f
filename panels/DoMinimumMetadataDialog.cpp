#include "IGD/MinimumMetadataApi.h"

#include "panels/MinimumMetadataFinished.h"

namespace IGD {

// Until the panel is shown, every ingest goes on without minimum metadata.
boost::intrusive_ptr<fluxui::ui::UI_Dialog> DoMinimumMetadataDialog(const std::vector<Fnd::WString>&) {
    PostMinimumMetadataFinished(true, {});
    return {};
}

} // namespace IGD
