#include "settings/FieldReader.h"

#include "base/Failure.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillmark {
namespace {

struct FieldRow {
    const char* name;
    std::string bytes;
    std::vector<std::string> fields;
};

class FieldReaderTest : public testing::TestWithParam<FieldRow> {};

TEST_P(FieldReaderTest, GivesTheFieldsAndThenFails) {
    // A copy of exactly this size, so that a sanitizer sees a read behind its end.
    const std::vector<char> bytes(GetParam().bytes.begin(), GetParam().bytes.end());
    FieldReader reader({bytes.data(), bytes.size()});
    for (const std::string& field : GetParam().fields) {
        EXPECT_EQ(reader.ReadTextValue(), field);
    }
    EXPECT_THROW(reader.ReadTextValue(), Failure);
}

const std::vector<FieldRow> FieldRows = {
    {"Nothing", "", {}},
    {"LineEnds", "#A=1\r\n#B=2\n#C=3\r#D=4", {"1", "2", "3", "4"}},
    {"OnlyTheFirstEqualsSeparates", "#A=b=c==", {"b=c=="}},
    {"NoEquals", "plain\r\n", {"plain"}},
    {"BlankLines", "\r\n  \r\n\n#A=1\r\n", {"", "", "", "1"}},
    {"CommaShiftsTheRest", "#A=a,b\r\n#C=c", {"a", "b", "c"}},
    {"CommaBeforeTheLineEnd", "a,\r\nb", {"a", "", "b"}},
    {"BlanksBeforeButNotBehind", "   a b  ,  c\r\n", {"a b  ", "c"}},
    {"TabIsNoBlank", "\ta\r\n", {"\ta"}},
    {"Quoted", "\"#A=b,c\r\nd\"\r\n#E=e", {"b,c\r\nd", "e"}},
    {"QuotedThenBlanksAndComma", "\"a\"  ,b", {"a", "b"}},
    {"QuotedThenText", "\"a\" b,c", {"a", "b", "c"}},
    {"QuoteInside", "#A=\"b,c\"\r\n", {"\"b", "c\""}},
    {"QuoteNeverClosed", "a,\"b\r\n", {"a", "b\r\n"}},
    {"QuoteAtTheEnd", "a,\"", {"a", ""}}};

INSTANTIATE_TEST_SUITE_P(Bytes, FieldReaderTest, testing::ValuesIn(FieldRows),
                         [](const auto& row) { return row.param.name; });

TEST(FieldReader, ReadsALineWhole) {
    FieldReader reader("#A=\"1\",2\r\n3,4");
    EXPECT_EQ(reader.readLine(), "#A=\"1\",2");
    EXPECT_EQ(reader.ReadTextValue(), "3");
    EXPECT_EQ(reader.readLine(), "4");
    EXPECT_THROW(reader.readLine(), Failure);
}

TEST(FieldReader, ReadsNumbersAsSixteenBits) {
    FieldReader reader("#A=yes\n#A=1.5\n#A=2.5\n7\n#A=-3x\n#A=\n#A= 12\n#A=32767\n#A=70000\n");
    for (const int number : {0, 2, 2, 7, -3, 0, 12, 32767}) {
        EXPECT_EQ(reader.ReadNumberValue(), number);
    }
    EXPECT_THROW(reader.ReadNumberValue(), Failure);
}

} // namespace
} // namespace quillmark
