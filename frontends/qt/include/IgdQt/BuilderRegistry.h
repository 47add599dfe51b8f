#pragma once
// Which builder presents which node. A node is matched first by its class name, then by the
// nearest toolkit base class it derives from, so a view class of the library (a section, a custom
// field) is presented as the toolkit class it extends.
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "IgdQt/ControlBuilder.h"

namespace igd::qt {

class BuilderRegistry {
public:
    using Matcher = std::function<bool(const fluxui::ui::UI_Node&)>;

    // Registers a builder for a class name; matcher recognises subclasses. Entries registered
    // earlier are tried first, so register derived classes before their bases.
    void Register(std::string className, Matcher matcher, std::shared_ptr<const ControlBuilder> builder);
    // The builder for a node: the exact class, else the first matching entry, else the fallback.
    const ControlBuilder& Find(const fluxui::ui::UI_Node& node) const;
    void SetFallback(std::shared_ptr<const ControlBuilder> builder) { fallback_ = std::move(builder); }

    // Builders for every control of the toolkit, shared by all presenters.
    static const BuilderRegistry& Standard();

private:
    struct Entry {
        std::string className;
        Matcher matcher;
        std::shared_ptr<const ControlBuilder> builder;
    };
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> byName_;
    std::shared_ptr<const ControlBuilder> fallback_;
};

} // namespace igd::qt
