#pragma once
// A section built and loaded as the settings pane shows it, alone in a scroll view: what the
// gallery and the front-end tests look at.
#include <functional>

#include "fluxui/controls/UI_ScrollView.h"
#include "transfer/SectionViewEx.h"

namespace wrangler::ui {

// Builds the section at the width of a scroll view of the given size (less its bar), loads it from
// the settings, lets prepare act on it as a user would, and keeps the scroll range following the
// section as it grows and shrinks. Answers the scroll view, which owns the section.
boost::intrusive_ptr<fluxui::controls::UI_ScrollView>
BuildSectionPreview(const SectionViewExRef& section, float width, float height,
                    const std::function<void()>& prepare = {});

} // namespace wrangler::ui
