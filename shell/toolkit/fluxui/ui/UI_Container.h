#pragma once
// The child list of a node. Children are owned through intrusive references.
#include <cstddef>
#include <vector>

#include <boost/intrusive_ptr.hpp>

namespace fluxui::ui {

class UI_Node;
using UI_NodeRef = boost::intrusive_ptr<UI_Node>;

class UI_Container {
public:
    using ChildIterator = std::vector<UI_NodeRef>::const_iterator;

    virtual ~UI_Container() = default;
    virtual void ChildPushBack(const UI_NodeRef& node) = 0;
    // position counts from the first child; past the end appends.
    virtual void ChildInsert(std::size_t position, const UI_NodeRef& node) = 0;
    virtual ChildIterator ChildFind(const UI_Node* node) const = 0;
    virtual bool ChildRemove(const UI_Node* node) = 0;
    virtual ChildIterator ChildBegin() const = 0;
    virtual ChildIterator ChildEnd() const = 0;
    virtual std::size_t ChildCount() const = 0;
};

} // namespace fluxui::ui
