#include "Fnd/LocalTimeFormatter.h"
#include "QL/IngestUtils.h"

namespace QL {

Fnd::WString IngestUtils::DateFormatter(const Fnd::WString& pattern, Fnd::Date date) {
    return Fnd::LocalTimeFormatter().Format(date, pattern);
}

} // namespace QL
