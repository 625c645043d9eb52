#include "settings/Cipher.h"

#include "base/Failure.h"

#include <gmock/gmock.h>

#include <vector>

namespace quillmark {
namespace {

std::string stretched(std::string_view text) {
    Cipher cipher;
    cipher.Text(text);
    cipher.Stretch();
    return cipher.Text();
}

std::string shrunk(std::string_view text) {
    Cipher cipher;
    cipher.Text(text);
    cipher.Shrink();
    return cipher.Text();
}

TEST(RandomGenerator, GivesTheKnownSequences) {
    RandomGenerator generator;
    for (const float number : {0.7055475F, 0.533424F, 0.5795186F, 0.2895625F}) {
        EXPECT_FLOAT_EQ(generator.next(), number);
    }
    EXPECT_FLOAT_EQ(generator.reseed(-0.0F), 0.2895625F);
    EXPECT_FLOAT_EQ(generator.reseed(-1), 0.224007F);
}

TEST(Cipher, StretchesByGroupsOfThree) {
    EXPECT_EQ(stretched(""), "");
    EXPECT_EQ(stretched("\x41\xC2\xFF"), "<=zZ");
    EXPECT_EQ(stretched("\x70"), "kK");
}

TEST(Cipher, ShrinksWhatNoStretchGives) {
    EXPECT_EQ(shrunk("<=zZ;"), "\x41\xC2\xFF") << "a last character alone has no byte";
    EXPECT_EQ(shrunk(";"), "");
    EXPECT_EQ(shrunk("<=z:"), "\x01\x02\xFF") << "no byte is below 0";
    EXPECT_EQ(shrunk("\xFF;"), "\xC4");
    EXPECT_THROW(shrunk(""), Failure);
    EXPECT_THROW(shrunk(":;"), Failure);
    EXPECT_THROW(shrunk("<=zZ<\x01;"), Failure);
}

struct PasswordRow {
    const char* name;
    const char* clear;
    const char* stored;
};

class PasswordTest : public testing::TestWithParam<PasswordRow> {};

TEST_P(PasswordTest, KeepsItsStoredForm) {
    EXPECT_EQ(EncryptPassword(GetParam().clear), GetParam().stored);
    EXPECT_EQ(DecryptPassword(GetParam().stored), GetParam().clear);
}

const std::vector<PasswordRow> PasswordRows = {
    {"Empty", "", ""},
    {"OneCharacter", "a", "P;"},
    {"EqualsInTheStoredForm", "6", "=K"},
    {"SixCharacters", "secret", "Bgc??kl\\"},
    {"Address", "anonymous@example.org", "Pb_?Sgc\\MY\\wwcU]W[TSqJcQMPG["}};

INSTANTIATE_TEST_SUITE_P(Passwords, PasswordTest, testing::ValuesIn(PasswordRows),
                         [](const auto& row) { return row.param.name; });

TEST(Password, OfAnyBytesComesBack) {
    for (std::size_t length = 1; length <= 64; ++length) {
        for (int first = 0; first < 256; ++first) {
            std::string clear;
            for (std::size_t i = 0; i < length; ++i) {
                clear += static_cast<char>(first + static_cast<int>(i) * 37);
            }
            const std::string stored = EncryptPassword(clear);
            ASSERT_EQ(stored.size(), length + (length + 2) / 3);
            ASSERT_THAT(stored, testing::Each(testing::AllOf(testing::Ge(';'), testing::Le('z'))));
            ASSERT_EQ(DecryptPassword(stored), clear);
        }
    }
}

} // namespace
} // namespace quillmark
