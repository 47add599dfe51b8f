#include <gtest/gtest.h>

#include <time.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "QL/IngestUtils.h"

namespace igd::test {
namespace {

using QL::IngestUtils;

// Sets TZ for one test and gives the old value back.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone) {
        if (const char* old = std::getenv("TZ"))
            old_ = old;
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~ScopedTimeZone() {
        if (old_)
            ::setenv("TZ", old_->c_str(), 1);
        else
            ::unsetenv("TZ");
        ::tzset();
    }

private:
    std::optional<std::string> old_;
};

// 2024-03-05 14:30:59 UTC
constexpr Fnd::Date kMarchFifth{1709649059};

TEST(DateFormatter, FormatsInLocalTimeAndKeepsTheTextAroundConversions) {
    struct Case {
        const char* zone;
        Fnd::WString format, expected;
    };
    for (const Case& c : {Case{"UTC0", u"%Y-%m-%d_%H-%M-%S", u"2024-03-05_14-30-59"},
                          Case{"JST-9", u"%Y-%m-%d_%H-%M-%S", u"2024-03-05_23-30-59"},
                          Case{"EST5", u"%Y-%m-%d_%H-%M-%S", u"2024-03-05_09-30-59"},
                          Case{"UTC0", u"Tag %d \u2013 Kamera \U0001F3A5 %%", u"Tag 05 \u2013 Kamera \U0001F3A5 %"},
                          Case{"UTC0", u"no conversion", u"no conversion"}, Case{"UTC0", u"", u""}}) {
        SCOPED_TRACE(c.zone);
        ScopedTimeZone zone(c.zone);
        EXPECT_EQ(IngestUtils::DateFormatter(c.format, kMarchFifth), c.expected);
    }
}

} // namespace
} // namespace igd::test
