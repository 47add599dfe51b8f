#pragma once
#include <vector>

#include <boost/intrusive_ptr.hpp>

#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "fluxcore/Guid.h"
#include "fluxcore/RefCountedObject.h"

namespace IGD {

// One thing the user chose to ingest, with paths relative to the session's source root.
class IGD_EXPORT SelectedItem : public fluxcore::utility::RefCountedObject {
public:
    SelectedItem() = default;
    explicit SelectedItem(const Fnd::WString& itemPath) : itemPath_(itemPath) {}

    void AddExtraPath(const Fnd::WString& path) { extraPaths_.push_back(path); }
    // Copies the relative extra paths into out.
    void GetExtraPaths(std::vector<Fnd::WString>& out) const { out = extraPaths_; }
    const std::vector<Fnd::WString>& ExtraPaths() const { return extraPaths_; }
    bool HasExtraPaths() const { return !extraPaths_.empty(); }
    // Appends each extra path joined with the normalised root.
    void GetFullExtraPaths(const Fnd::WString& root, std::vector<Fnd::WString>& out) const;

    // The item path joined with the normalised root.
    Fnd::WString GetFullItemPath(const Fnd::WString& root) const;
    const Fnd::WString& GetItemPath() const { return itemPath_; }
    void SetItemPath(const Fnd::WString& path) { itemPath_ = path; }

    const Fnd::WString& GetItemFormat() const { return itemFormat_; }
    void SetItemFormat(const Fnd::WString& format) { itemFormat_ = format; }

    // New base name without extension; empty means no rename.
    const Fnd::WString& GetOutputName() const { return outputName_; }
    void SetOutputName(const Fnd::WString& name) { outputName_ = name; }
    bool HasOutputName() const { return !outputName_.empty(); }

    const fluxcore::utility::Guid& GetClipGuid() const { return clipGuid_; }
    void SetClipGuid(const fluxcore::utility::Guid& guid) { clipGuid_ = guid; }

private:
    Fnd::WString itemPath_;
    std::vector<Fnd::WString> extraPaths_;
    Fnd::WString itemFormat_;
    Fnd::WString outputName_;
    fluxcore::utility::Guid clipGuid_;
};

using SelectedItemRef = boost::intrusive_ptr<SelectedItem>;

} // namespace IGD
