#pragma once
// Exempi, made safe to call from the task service's worker threads: one lock around every use
// (the toolkit's namespace registry and its error code are process-wide) and owners that free
// what it allocates.
#include <exempi/xmp.h>

#include <memory>
#include <mutex>
#include <string>

namespace QL::Xmp {

// Held for the whole of any work with Exempi; initialises the toolkit on first use.
class ToolkitLock {
public:
    ToolkitLock();

private:
    std::unique_lock<std::mutex> lock_;
};

struct MetaDeleter {
    void operator()(_Xmp* xmp) const { xmp_free(xmp); }
};
struct StringDeleter {
    void operator()(_XmpString* s) const { xmp_string_free(s); }
};
using MetaPtr = std::unique_ptr<_Xmp, MetaDeleter>;
using StringPtr = std::unique_ptr<_XmpString, StringDeleter>;

inline StringPtr NewString() {
    return StringPtr(xmp_string_new());
}

inline std::string ToStdString(const StringPtr& s) {
    return std::string(xmp_string_cstr(s.get()), xmp_string_len(s.get()));
}

} // namespace QL::Xmp
