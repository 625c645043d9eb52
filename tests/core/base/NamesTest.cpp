#include "base/NameComparison.h"
#include "base/Printable.h"
#include "base/UpperCase.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quillmark {
namespace {

TEST(UpperCase, MapsLettersOfAsciiOnlyInInvalidUtf8) {
    EXPECT_EQ(upperCase("az[`{AZ"), "AZ[`{AZ");
    EXPECT_EQ(upperCase("caf\u00E9.gif"), "CAF\u00C9.GIF");
    EXPECT_EQ(upperCase("\u0131.htm"), "I.HTM") << "shorter in upper case";
    EXPECT_EQ(upperCase("\U00010428a"), "\U00010400A") << "beyond the basic plane";
    EXPECT_EQ(upperCase("\u00E9\xE9z"), "\u00E9\xE9Z") << "valid before invalid";
    EXPECT_EQ(upperCase("a\xC3"), "A\xC3") << "cut short";
    EXPECT_EQ(upperCase("a\xED\xA0\x80"), "A\xED\xA0\x80") << "surrogate";
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
    const NameEqual exact(NameComparison::Exact);
    const NameEqual equal(NameComparison::IgnoreCase);
    const NameHash hash(NameComparison::IgnoreCase);
    std::mt19937 random(20);
    int equalButNotSame = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string a = generatedName(random);
        const std::string b = generatedName(random);
        ASSERT_EQ(exact(a, b), a == b) << a << " and " << b;
        ASSERT_EQ(equal(a, b), upperCase(a) == upperCase(b)) << a << " and " << b;
        ASSERT_TRUE(!equal(a, b) || hash(a) == hash(b)) << a << " and " << b;
        equalButNotSame += equal(a, b) && a != b ? 1 : 0;
    }
    EXPECT_GT(equalButNotSame, 100);
}

TEST(Names, ArePrintedWithoutSteeringTheTerminal) {
    struct Row {
        std::string_view text;
        std::size_t columns;
        std::string_view shown;
    };
    constexpr std::size_t All = std::string_view::npos;
    for (const Row& row : {Row{"\x1B[2J\x7F\n", All, R"(\x1B[2J\x7F\x0A)"},
                           {"\xC2\x80\xC2\x9F\xC2\xA0", All, "\\xC2\\x80\\xC2\\x9F\xC2\xA0"},
                           {"a\xE2\x80\xAEgpj.exe", All, "a\\xE2\\x80\\xAEgpj.exe"},
                           {"\xC3\xA4\xC3", All, "\xC3\xA4\\xC3"},
                           {"\xC3\xA4\xC3\xA4\xC3\xA4", 2, "\xC3\xA4\xC3\xA4"},
                           {"\xE4\xB8\xAD\xE6\x96\x87", 3, "\xE4\xB8\xAD"},
                           {"ab\x1B", 5, "ab"}}) {
        EXPECT_EQ(printable(row.text, row.columns), row.shown);
    }
}

} // namespace
} // namespace quillmark
