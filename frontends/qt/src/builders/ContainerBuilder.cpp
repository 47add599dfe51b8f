#include <QWidget>

#include "builders/StandardBuilders.h"

namespace igd::qt {
namespace {

// Views that only hold and place children: subviews, layout views, windows and dialogs.
class ContainerBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new QWidget(parent);
    }
};

} // namespace

BuilderPtr MakeContainerBuilder() {
    return std::make_shared<ContainerBuilder>();
}

} // namespace igd::qt
