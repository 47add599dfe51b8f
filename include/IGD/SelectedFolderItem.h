#pragma once
#include "IGD/SelectedItem.h"

namespace IGD {

// A whole folder: the item path is the folder, the extra paths its content.
class IGD_EXPORT SelectedFolderItem : public SelectedItem {
public:
    using SelectedItem::SelectedItem;
};

using SelectedFolderItemRef = boost::intrusive_ptr<SelectedFolderItem>;

} // namespace IGD
