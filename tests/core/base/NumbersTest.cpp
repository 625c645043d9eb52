#include "base/Numbers.h"

#include "base/Failure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark {
namespace {

TEST(LeadingNumber, EndsAtTheFirstForeignCharacter) {
    for (const auto& [text, number] : std::vector<std::pair<std::string, double>>{{"", 0},
                                                                                  {"  42  ", 42},
                                                                                  {" -3.5x", -3.5},
                                                                                  {"+2-", 2},
                                                                                  {"--2", 0},
                                                                                  {".5", 0.5},
                                                                                  {"5.", 5},
                                                                                  {".", 0},
                                                                                  {"1.5.5", 1.5},
                                                                                  {"1e3", 1},
                                                                                  {"inf", 0}}) {
        EXPECT_EQ(leadingNumber(text), number) << text;
    }
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_THROW(toInt16(leadingNumber(std::string(400, '9'))), Failure);
    EXPECT_THROW(toInt16(leadingNumber("-" + std::string(400, '9'))), Failure);
}

TEST(Numbers, AreRoundedHalvesToEvenAndHeldInTheirField) {
    EXPECT_EQ(toInt16(0.5), 0);
    EXPECT_EQ(toInt16(-1.5), -2);
    EXPECT_EQ(toInt16(2.51), 3);
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_THROW(toInt16(32767.5), Failure);
    EXPECT_THROW(toInt16(-32768.6), Failure);
    EXPECT_EQ(toInt32Held(2.5), 2);
    EXPECT_EQ(toInt32Held(2147483646.7), 2147483647);
    EXPECT_EQ(toInt32Held(9999999999.0), 2147483647);
    EXPECT_EQ(toInt32Held(-9999999999.0), -2147483647);
}

} // namespace
} // namespace quillmark
