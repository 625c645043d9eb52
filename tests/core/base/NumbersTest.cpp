#include "base/Numbers.h"

#include "base/Failure.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

TEST(LeadingNumber, EndsAtTheFirstForeignCharacter) {
    EXPECT_EQ(leadingNumber(""), 0);
    EXPECT_EQ(leadingNumber("  42  "), 42);
    EXPECT_EQ(leadingNumber(" -3.5x"), -3.5);
    EXPECT_EQ(leadingNumber("+2-"), 2);
    EXPECT_EQ(leadingNumber("--2"), 0);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("5."), 5);
    EXPECT_EQ(leadingNumber("."), 0);
    EXPECT_EQ(leadingNumber("1.5.5"), 1.5);
    EXPECT_EQ(leadingNumber("1e3"), 1);
    EXPECT_EQ(leadingNumber("inf"), 0);
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

TEST(ZeroPadded, KeepsLongerNumbers) {
    EXPECT_EQ(zeroPadded(7, 3), "007");
    EXPECT_EQ(zeroPadded(1234, 3), "1234");
    EXPECT_EQ(zeroPadded(-7, 3), "-007");
}

} // namespace
} // namespace quillmark
