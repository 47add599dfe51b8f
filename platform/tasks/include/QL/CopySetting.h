#pragma once
#include <cstdint>
#include <list>
#include <map>

#include <boost/intrusive_ptr.hpp>

#include "Fnd/WString.h"
#include "QL/IngestItem.h"
#include "fluxcore/Guid.h"
#include "fluxcore/RefCountedObject.h"

namespace QL {

// Copy actions: what to do when the target exists already.
inline constexpr std::int32_t kCopyActionNone = 0;     // nothing exists at the target
inline constexpr std::int32_t kCopyActionSkip = 1;     // keep and import the existing target
inline constexpr std::int32_t kCopyActionKeepBoth = 2; // write under a new unique name
inline constexpr std::int32_t kCopyActionReplace = 3;

// One file or folder to copy.
struct CopyEntry {
    Fnd::WString source;
    Fnd::WString target;
    std::int32_t action = kCopyActionNone;
    // Meaningful on the entries of extra paths only; see the planner.
    bool isFolder = false;
};

namespace IngestTask {

// The work for one selected item at one destination.
class CopyUnit : public fluxcore::utility::RefCountedObject {
public:
    std::list<CopyEntry> entries;                 // the item's own path first, then its extra paths
    IngestItemMap importItems;                    // keyed by target path
    std::map<Fnd::WString, Fnd::WString> renames; // target path to new base name
    std::map<Fnd::WString, fluxcore::utility::Guid> clipGuids; // target path to clip identity
};

using CopyUnitRef = boost::intrusive_ptr<CopyUnit>;

inline constexpr std::uint32_t kVerifyMD5 = 0;
inline constexpr std::uint32_t kVerifyFileSize = 1;
inline constexpr std::uint32_t kVerifyBitByBit = 2;
inline constexpr std::uint32_t kVerifyNone = 0xFFFFFFFFu;
// The checksum modes besides MD5: the copy is read back and its digest compared with the source's.
inline constexpr std::uint32_t kVerifyXXH128 = 3;
inline constexpr std::uint32_t kVerifyXXH3 = 4;
inline constexpr std::uint32_t kVerifyXXH64 = 5;

// Whether the mode compares digests (MD5 or one of the xxHash family).
constexpr bool IsChecksumVerify(std::uint32_t verifyMode) {
    return verifyMode == kVerifyMD5 || verifyMode == kVerifyXXH128 || verifyMode == kVerifyXXH3 ||
           verifyMode == kVerifyXXH64;
}

// A task of copies for one destination.
struct CopySetting {
    std::list<CopyUnitRef> units; // one per selected item, in selection order
    std::uint32_t verifyMode = kVerifyNone;
    bool addToProject = false; // the destination is primary
};

} // namespace IngestTask
} // namespace QL
