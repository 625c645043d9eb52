#include "settings/Cipher.h"

#include "base/Failure.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

std::string shrunk(std::string_view text) {
    Cipher cipher;
    cipher.Text(text);
    cipher.Shrink();
    return cipher.Text();
}

TEST(Cipher, ShrinksDamagedText) {
    EXPECT_EQ(shrunk("<=zZ;"), "\x41\xC2\xFF") << "a last character alone has no byte";
    EXPECT_EQ(shrunk("<=z:"), "\x01\x02\xFF") << "no byte is below 0";
    EXPECT_EQ(shrunk("\xFF;"), "\xC4");
    EXPECT_THROW(shrunk(""), Failure);
    EXPECT_THROW(shrunk("<=zZ<\x01;"), Failure);
}

TEST(Password, KeepsItsStoredForm) {
    for (const auto& [clear, stored] : std::vector<std::pair<std::string, std::string>>{
             {"", ""},
             {"a", "P;"},
             {"6", "=K"},
             {"secret", "Bgc??kl\\"},
             {"anonymous@example.org", "Pb_?Sgc\\MY\\wwcU]W[TSqJcQMPG["}}) {
        EXPECT_EQ(EncryptPassword(clear), stored);
        EXPECT_EQ(DecryptPassword(stored), clear);
    }
}

TEST(Password, OfAnyBytesComesBack) {
    std::string clear;
    for (std::size_t length = 1; length <= 768; ++length) {
        clear += static_cast<char>(length * 37);
        const std::string stored = EncryptPassword(clear);
        ASSERT_EQ(stored.size(), length + (length + 2) / 3);
        ASSERT_THAT(stored, testing::Each(testing::AllOf(testing::Ge(';'), testing::Le('z'))));
        ASSERT_EQ(DecryptPassword(stored), clear);
    }
}

} // namespace
} // namespace quillmark
