#include "base/NameComparison.h"
#include "base/UpperCase.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillmark {
namespace {

struct CaseRow {
    const char* name;
    std::string_view text;
    std::string_view upper;
};

class UpperCaseTest : public testing::TestWithParam<CaseRow> {};

TEST_P(UpperCaseTest, MapsLetters) {
    EXPECT_EQ(upperCase(GetParam().text), GetParam().upper);
}

const std::vector<CaseRow> ValidRows = {{"Ascii", "az[`{AZ", "AZ[`{AZ"},
                                        {"Latin", "caf\u00E9.gif", "CAF\u00C9.GIF"},
                                        {"Greek", "\u03B1\u03C9", "\u0391\u03A9"},
                                        {"ShorterInUpperCase", "\u0131.htm", "I.HTM"},
                                        {"BeyondTheBasicPlane", "\U00010428a", "\U00010400A"},
                                        {"NoCase", "\u65E5a", "\u65E5A"}};
const std::vector<CaseRow> InvalidRows = {{"Latin1", "caf\xE9.gif", "CAF\xE9.GIF"},
                                          {"ValidBeforeInvalid", "\u00E9\xE9z", "\u00E9\xE9Z"},
                                          {"CutShort", "a\xC3", "A\xC3"},
                                          {"Overlong", "a\xC0\xAF", "A\xC0\xAF"},
                                          {"Surrogate", "a\xED\xA0\x80", "A\xED\xA0\x80"}};

const auto CaseName = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(ValidUtf8, UpperCaseTest, testing::ValuesIn(ValidRows), CaseName);
INSTANTIATE_TEST_SUITE_P(InvalidUtf8, UpperCaseTest, testing::ValuesIn(InvalidRows), CaseName);

TEST(UpperAscii, KeepsEveryOtherByteAndTheLength) {
    std::string result = "longer than the text";
    upperAscii("\u0131z\xE9{", result);
    EXPECT_EQ(result, "\u0131Z\xE9{");
}

std::string generatedName(std::mt19937& random) {
    static const std::vector<std::string_view> pieces = {
        "a", "A", "i", "I", "\u0131", "\u00E9", "\u00C9", "\u212A", "\u00E5", "\xE9", "\xC9", "{"};
    std::string name;
    for (auto length = 1 + random() % 3; length > 0; --length) {
        name += pieces[random() % pieces.size()];
    }
    return name;
}

TEST(NameComparison, AgreesWithUpperCaseOnGeneratedNames) {
    const NameEqual equal(NameComparison::IgnoreCase);
    const NameHash hash(NameComparison::IgnoreCase);
    std::mt19937 random(20);
    int equalButNotSame = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string a = generatedName(random);
        const std::string b = generatedName(random);
        ASSERT_EQ(equal(a, b), upperCase(a) == upperCase(b)) << a << " and " << b;
        if (equal(a, b)) {
            ASSERT_EQ(hash(a), hash(b)) << a << " and " << b;
            equalButNotSame += a == b ? 0 : 1;
        }
    }
    EXPECT_GT(equalButNotSame, 100);
}

TEST(NameComparison, ExactTellsCaseApart) {
    const NameEqual equal(NameComparison::Exact);
    EXPECT_TRUE(equal("a.gif", "a.gif"));
    EXPECT_FALSE(equal("a.gif", "A.gif"));
}

} // namespace
} // namespace quillmark
