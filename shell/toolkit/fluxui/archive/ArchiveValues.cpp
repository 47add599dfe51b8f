#include "fluxui/archive/ArchiveValues.h"

#include <string>

#include "fluxcore/ZString.h"

namespace fluxui::archive {

namespace {

[[noreturn]] void Fail(std::string_view what, const std::string& problem) {
    throw ArchiveError(std::string(what) + ": " + problem);
}

// The map of a typed value, after checking its .aptype.
const Property& TypedMap(const Property& value, std::int64_t aptype, std::string_view what) {
    ExpectType(value, PropertyType::Map, what);
    const Property* kind = value.Find(".aptype");
    if (!kind || kind->type != PropertyType::Int || kind->integer != aptype)
        Fail(what, "expected a value of .aptype " + std::to_string(aptype));
    return value;
}

const Property& Member(const Property& map, std::string_view key, PropertyType type, std::string_view what) {
    const Property* member = map.Find(key);
    if (!member)
        Fail(what, "lacks " + std::string(key));
    ExpectType(*member, type, std::string(what) + "." + std::string(key));
    return *member;
}

// A typed value holds .aptype and exactly the keys of its kind.
void ExpectKeyCount(const Property& map, std::size_t keys, std::string_view what) {
    if (map.pairs.size() != keys + 1)
        Fail(what, "holds keys its kind does not have");
}

} // namespace

void ExpectType(const Property& value, PropertyType type, std::string_view what) {
    if (value.type != type)
        Fail(what,
             std::string("expected ") + PropertyTypeName(type) + ", found " + PropertyTypeName(value.type));
}

fluxcore::geom::RectF RectValue(const Property& value, std::string_view what) {
    const Property& map = TypedMap(value, 1, what);
    ExpectKeyCount(map, 4, what);
    const auto number = [&](std::string_view key) {
        return static_cast<float>(Member(map, key, PropertyType::Float, what).number);
    };
    const fluxcore::geom::RectF rect{number("left"), number("top"), number("width"), number("height")};
    if (rect.width < 0.0f || rect.height < 0.0f)
        Fail(what, "a negative width or height");
    return rect;
}

int EnumValue(const Property& value, int count, std::string_view what) {
    const Property& map = TypedMap(value, 2, what);
    ExpectKeyCount(map, 1, what);
    const Property& selected = Member(map, "selected", PropertyType::Int, what);
    if (selected.isUnsigned)
        Fail(what, "selected must be a signed int");
    if (selected.integer < 0 || selected.integer >= count)
        Fail(what, "selected " + std::to_string(selected.integer) + " is not one of 0 to " +
                       std::to_string(count - 1));
    return static_cast<int>(selected.integer);
}

std::uint32_t FlagsValue(const Property& value, std::uint32_t known, std::string_view what) {
    const Property& map = TypedMap(value, 4, what);
    ExpectKeyCount(map, 1, what);
    const Property& flags = Member(map, "constraints", PropertyType::Int, what);
    if (!flags.isUnsigned)
        Fail(what, "constraints must be an unsigned int");
    const auto bits = static_cast<std::uint32_t>(flags.integer);
    if (bits & ~known)
        Fail(what, "unknown flag bits " + std::to_string(bits & ~known));
    return bits;
}

Fnd::WString ResolveText(const Fnd::WString& text) {
    constexpr std::u16string_view open = u"($$$/";
    if (text.size() < open.size() + 1 || !text.starts_with(open) || text.back() != u')')
        return text;
    return fluxcore::Localize(Fnd::ToUTF8(std::u16string_view(text).substr(1, text.size() - 2)));
}

} // namespace fluxui::archive
