#include "base/Numbers.h"

#include "base/Failure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark {
namespace {

struct TextRow {
    const char* name;
    std::string text;
    double number;
};

class LeadingNumberTest : public testing::TestWithParam<TextRow> {};

TEST_P(LeadingNumberTest, ReadsUpToTheFirstForeignCharacter) {
    EXPECT_EQ(leadingNumber(GetParam().text), GetParam().number);
}

const std::vector<TextRow> TextRows = {{"Empty", "", 0},
                                       {"Word", "abc", 0},
                                       {"BlanksAround", "  42  ", 42},
                                       {"BlankInside", "4 2", 4},
                                       {"Minus", " -3.5x", -3.5},
                                       {"Plus", "+2", 2},
                                       {"TwoSigns", "--2", 0},
                                       {"FractionOnly", ".5", 0.5},
                                       {"PointAtTheEnd", "5.", 5},
                                       {"PointOnly", ".", 0},
                                       {"TwoPoints", "1.5.5", 1.5},
                                       {"Exponent", "1e3", 1},
                                       {"Infinity", "inf", 0},
                                       {"Hexadecimal", "0x10", 0},
                                       {"Tiny", "0." + std::string(400, '0') + "1", 0}};

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumberTest, testing::ValuesIn(TextRows),
                         [](const auto& row) { return row.param.name; });

TEST(LeadingNumber, OfTooManyDigitsIsLarge) {
    EXPECT_THROW(toInt16(leadingNumber(std::string(400, '9'))), Failure);
    EXPECT_THROW(toInt16(leadingNumber("-" + std::string(400, '9'))), Failure);
    EXPECT_EQ(toInt32Held(leadingNumber(std::string(400, '9'))), 2147483647);
}

TEST(ToInt16, RoundsHalvesToEven) {
    EXPECT_EQ(toInt16(0.5), 0);
    EXPECT_EQ(toInt16(1.5), 2);
    EXPECT_EQ(toInt16(2.5), 2);
    EXPECT_EQ(toInt16(-1.5), -2);
    EXPECT_EQ(toInt16(2.51), 3);
}

TEST(ToInt16, RefusesWhatDoesNotFit) {
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_THROW(toInt16(32767.5), Failure);
    EXPECT_THROW(toInt16(-32768.6), Failure);
    EXPECT_THROW(toInt16(70000), Failure);
}

TEST(ToInt32Held, RoundsAndHolds) {
    EXPECT_EQ(toInt32Held(2.5), 2);
    EXPECT_EQ(toInt32Held(2147483646.7), 2147483647);
    EXPECT_EQ(toInt32Held(9999999999.0), 2147483647);
    EXPECT_EQ(toInt32Held(-9999999999.0), -2147483647);
}

TEST(ZeroPadded, KeepsLongerNumbers) {
    EXPECT_EQ(zeroPadded(0, 3), "000");
    EXPECT_EQ(zeroPadded(7, 3), "007");
    EXPECT_EQ(zeroPadded(1234, 3), "1234");
    EXPECT_EQ(zeroPadded(2147483647, 9), "2147483647");
    EXPECT_EQ(zeroPadded(-7, 3), "-007");
}

} // namespace
} // namespace quillmark
