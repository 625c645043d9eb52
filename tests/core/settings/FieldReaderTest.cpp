#include "settings/FieldReader.h"

#include "base/Failure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark {
namespace {

using Fields = std::vector<std::string>;

Fields fieldsOf(std::string_view text) {
    // A copy of exactly this size, so that a sanitizer sees a read behind its end.
    const std::vector<char> bytes(text.begin(), text.end());
    FieldReader reader({bytes.data(), bytes.size()});
    Fields fields;
    try {
        while (true) {
            fields.emplace_back(reader.ReadTextValue());
        }
    } catch (const Failure&) {
        return fields;
    }
}

TEST(FieldReader, GivesTheFieldsAndThenFails) {
    EXPECT_EQ(fieldsOf("#A=1\r\n#B=2\n#C=3\r#D=4"), (Fields{"1", "2", "3", "4"}));
    EXPECT_EQ(fieldsOf("plain\r\n#A=b=c=="), (Fields{"plain", "b=c=="}));
    EXPECT_EQ(fieldsOf("\r\n  \r\n\n\ta\r\n"), (Fields{"", "", "", "\ta"})) << "a tab is no blank";
    EXPECT_EQ(fieldsOf("#A=a,b,\r\n#C=c"), (Fields{"a", "b", "", "c"}));
    EXPECT_EQ(fieldsOf("   a b  ,  c\r\n"), (Fields{"a b  ", "c"}));
    EXPECT_EQ(fieldsOf("\"#A=b,c\r\nd\"\r\n#E=e"), (Fields{"b,c\r\nd", "e"}));
    EXPECT_EQ(fieldsOf("\"a\"  ,\"b\" c,d"), (Fields{"a", "b", "c", "d"}));
    EXPECT_EQ(fieldsOf("#A=\"b,c\"\r\n"), (Fields{"\"b", "c\""}));
    EXPECT_EQ(fieldsOf("a,\"b\r\n"), (Fields{"a", "b\r\n"}));
    EXPECT_EQ(fieldsOf("a,\""), (Fields{"a", ""}));
}

TEST(FieldReader, ReadsLinesAndNumbers) {
    FieldReader reader("#A=\"1\",2\r\n3,4\n#A=yes\n#A=1.5\n#A=-3x\n#A=\n#A=32767\n#A=70000\n");
    EXPECT_EQ(reader.readLine(), "#A=\"1\",2");
    EXPECT_EQ(reader.ReadTextValue(), "3");
    EXPECT_EQ(reader.readLine(), "4");
    for (const int number : {0, 2, -3, 0, 32767}) {
        EXPECT_EQ(reader.ReadNumberValue(), number);
    }
    EXPECT_THROW(reader.ReadNumberValue(), Failure);
    EXPECT_THROW(reader.readLine(), Failure);
}

} // namespace
} // namespace quillmark
