#include "ui/HostTrustText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(HostTrustText, ShowsWhatAHostCallsItselfWithoutBeingSteered) {
    HostIdentity identity;
    identity.host = "ftp.site.example:21";
    identity.reason = "certificate has expired";
    identity.names = {"one\n\nEverything is fine.\x1B[2J", std::string(5000, 'x')};
    const std::string text = hostTrustText(identity);
    EXPECT_THAT(text, HasSubstr("of ftp.site.example:21 is refused: certificate has expired.\n"));
    EXPECT_THAT(text, HasSubstr("Made out for: one\\x0A\\x0AEverything"));
    EXPECT_THAT(text, Not(HasSubstr("\x1B")));
    EXPECT_LT(text.size(), 1000U);
    identity.names.assign(12, "name");
    EXPECT_THAT(hostTrustText(identity), HasSubstr("name, name and 2 more\n"));
    identity.names.clear();
    EXPECT_THAT(hostTrustText(identity), HasSubstr("Made out for: nobody\n"));
}

} // namespace
} // namespace quillmark::test
