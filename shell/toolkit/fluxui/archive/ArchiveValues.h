#pragma once
// Reading the typed values of a layout archive: rectangles, enumerations, flag sets, texts.
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "fluxcore/geom/Geometry.h"
#include "fluxui/archive/Property.h"

namespace fluxui::archive {

// A value of the wrong type or out of range; the builder adds the layout and the node.
class ArchiveError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Throws ArchiveError unless value has the type; what names the value in the message.
void ExpectType(const Property& value, PropertyType type, std::string_view what);

// .aptype 1: left, top, width, height.
fluxcore::geom::RectF RectValue(const Property& value, std::string_view what);
// .aptype 2: the selected number, which must lie in [0, count).
int EnumValue(const Property& value, int count, std::string_view what);
// .aptype 4: a set of flags, all of them within known.
std::uint32_t FlagsValue(const Property& value, std::uint32_t known, std::string_view what);

// A display text: "($$$/key=Default)" resolves through the localisation catalogue; any other text
// is a literal and stays as it is.
Fnd::WString ResolveText(const Fnd::WString& text);

} // namespace fluxui::archive
