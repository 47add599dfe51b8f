#include "fluxui/ui/UI_NodeBuilder.h"

#include <string_view>
#include <vector>

#include "fluxui/archive/ArchiveClasses.h"
#include "fluxui/archive/ArchiveValues.h"
#include "fluxui/archive/PropMapReader.h"
#include "fluxui/archive/SectionProperties.h"
#include "fluxui/ui/UI_Node.h"
#include "fluxui/utility/ResourceManager.h"

namespace fluxui::ui {

namespace {

using archive::ArchiveError;
using archive::Property;
using archive::PropertyType;

// Deeper than any dialog needs, and shallow enough that a hostile file cannot exhaust the stack.
constexpr int kMaxDepth = 64;

const Property& Required(const Property& map, std::string_view key, PropertyType type) {
    const Property* value = map.Find(key);
    if (!value)
        throw ArchiveError("no " + std::string(key));
    archive::ExpectType(*value, type, key);
    return *value;
}

// The maps under "<prefix>0" .. "<prefix>count-1" of a list that holds count and nothing else.
std::vector<const Property*> NumberedMaps(const Property& list, std::string_view prefix) {
    const Property& count = Required(list, "count", PropertyType::Int);
    if (!count.isUnsigned)
        throw ArchiveError("count must be an unsigned int");
    if (list.pairs.size() != static_cast<std::size_t>(count.integer) + 1)
        throw ArchiveError("count " + std::to_string(count.integer) + " does not match the " +
                           std::string(prefix) + " entries");
    std::vector<const Property*> maps;
    maps.reserve(static_cast<std::size_t>(count.integer));
    for (std::int64_t i = 0; i < count.integer; ++i)
        maps.push_back(&Required(list, std::string(prefix) + std::to_string(i), PropertyType::Map));
    return maps;
}

class TreeBuilder {
public:
    TreeBuilder(const std::string& layoutName, ControlsById& controlsById,
                const CustomControlFactory& factory)
        : layoutName_(layoutName), controlsById_(controlsById), factory_(factory) {}

    UI_NodeRef Build(const Property& archive) {
        try {
            const Property& version = Required(archive, "UINodeArchive", PropertyType::Int);
            if (!version.isUnsigned || version.integer != 1)
                throw ArchiveError("UINodeArchive version " + std::to_string(version.integer) + " is not 1");
            const Property& root = Required(archive, "root", PropertyType::Map);
            return BuildNode(root, "root", 0);
        } catch (const ArchiveError& e) {
            throw LayoutError(layoutName_ + ": " + e.what());
        }
    }

private:
    UI_NodeRef BuildNode(const Property& node, const std::string& path, int depth) {
        try {
            if (depth > kMaxDepth)
                throw ArchiveError("nodes nested deeper than " + std::to_string(kMaxDepth));
            return BuildCheckedNode(node, path, depth);
        } catch (const ArchiveError& e) {
            throw LayoutError(layoutName_ + ": " + path + ": " + e.what());
        }
    }

    UI_NodeRef BuildCheckedNode(const Property& node, const std::string& path, int depth) {
        const std::string adapter = Fnd::ToUTF8(Required(node, "adapter", PropertyType::UString).text);
        const archive::ArchiveClass* archiveClass = archive::FindArchiveClass(adapter);
        if (!archiveClass)
            throw ArchiveError("unknown class " + adapter);
        const std::vector<const Property*> sections =
            NumberedMaps(Required(node, "sections", PropertyType::Map), "section-");
        CheckSectionChain(*archiveClass, sections);

        UI_NodeRef built;
        if (const Property* className = node.Find("className")) {
            archive::ExpectType(*className, PropertyType::UString, "className");
            if (factory_)
                built = factory_(className->text);
        }
        if (!built)
            built = archiveClass->create(sections);
        built->UI_SetNodeID(std::string(archiveClass->defaultId));

        // The base class's section first, as construction runs: the bounds are in place before
        // any child is added, so that no child moves with its parent's first sizing.
        const Property* children = nullptr;
        for (std::size_t i = sections.size(); i-- > 0;) {
            archive::ApplySectionProperties(*built, archiveClass->sections[i], *sections[i]);
            if (const Property* found = sections[i]->Find("children")) {
                if (children)
                    throw ArchiveError("children are given in two sections");
                children = found;
            }
        }
        // Before the children: of a repeated id, the first in the file wins.
        controlsById_.emplace(built->UI_GetNodeID(), built);
        if (children) {
            archive::ExpectType(*children, PropertyType::Map, "children");
            const std::vector<const Property*> childNodes = NumberedMaps(*children, "child-");
            for (std::size_t i = 0; i < childNodes.size(); ++i)
                built->ChildPushBack(
                    BuildNode(*childNodes[i], path + "/child-" + std::to_string(i), depth + 1));
        }
        return built;
    }

    static void CheckSectionChain(const archive::ArchiveClass& archiveClass,
                                  const std::vector<const Property*>& sections) {
        if (sections.size() != archiveClass.sections.size())
            throw ArchiveError(std::string(archiveClass.adapter) + " has " +
                               std::to_string(archiveClass.sections.size()) + " sections, the node " +
                               std::to_string(sections.size()));
        for (std::size_t i = 0; i < sections.size(); ++i) {
            const std::string name =
                Fnd::ToUTF8(Required(*sections[i], "sectionName", PropertyType::UString).text);
            if (name != archiveClass.sections[i])
                throw ArchiveError("section-" + std::to_string(i) + " is " + name + ", expected " +
                                   std::string(archiveClass.sections[i]));
        }
    }

    const std::string& layoutName_;
    ControlsById& controlsById_;
    const CustomControlFactory& factory_;
};

} // namespace

UI_NodeRef UI_NodeBuilder::LoadViewFromXML(const utility::ResourceManager& resources,
                                           sketcher::SupplierInterface* supplier,
                                           const std::string& layoutName, ControlsById& controlsById,
                                           const CustomControlFactory& factory) {
    if (layoutName.empty())
        return {};
    const auto document = resources.FindResource("XML", layoutName);
    if (document.empty())
        throw LayoutError(layoutName + ": no layout of that name");
    Property archive;
    try {
        archive = archive::PropMapReader::Read(document);
    } catch (const archive::PropMapError& e) {
        throw LayoutError(layoutName + ": " + e.what());
    }
    // Built apart and entered only when the whole tree stands, so a failed build leaves the
    // caller's map as it was.
    ControlsById built;
    UI_NodeRef root = TreeBuilder(layoutName, built, factory).Build(archive);
    for (auto& entry : built)
        controlsById.emplace(entry.first, std::move(entry.second));
    return root;
}

} // namespace fluxui::ui
