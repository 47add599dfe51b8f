#pragma once
// The builder of each toolkit control; BuilderRegistry::Standard registers them.
#include <memory>

#include "IgdQt/ControlBuilder.h"

namespace igd::qt {

using BuilderPtr = std::shared_ptr<const ControlBuilder>;

BuilderPtr MakeContainerBuilder();
BuilderPtr MakeCheckboxBuilder();
BuilderPtr MakePopupBuilder();
BuilderPtr MakePicturePopupBuilder();
BuilderPtr MakeStaticTextBuilder();
BuilderPtr MakeTextEditBuilder();
BuilderPtr MakeNumberEditBuilder();
BuilderPtr MakeTextButtonBuilder();
BuilderPtr MakePictureButtonBuilder();
BuilderPtr MakeOutlineBoxBuilder();
BuilderPtr MakeDividerBuilder();
BuilderPtr MakeScrollViewBuilder();
BuilderPtr MakeScrollBarBuilder();
BuilderPtr MakeSectionViewBuilder();
BuilderPtr MakeSplitterBuilder();
BuilderPtr MakeListViewBuilder();

// The preview player's picture and scrub bar.
BuilderPtr MakeFrameViewBuilder();
BuilderPtr MakeSliderBuilder();

} // namespace igd::qt
