#include "base/Failure.h"
#include "settings/Cipher.h"
#include "settings/FieldReader.h"
#include "settings/Fingerprint.h"
#include "settings/SettingKeys.h"
#include "settings/SettingValue.h"

#include <gmock/gmock.h>

#include <algorithm>
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

std::string refusal(std::string_view key, std::string_view value) {
    Settings settings;
    try {
        setByKey(settings, key, value);
        return "none";
    } catch (const SettingError& error) {
        EXPECT_EQ(settings.profile, Profile());
        return error.what();
    }
}

TEST(SetByKey, SetsOneValuePerKey) {
    Settings settings;
    std::string lines;
    for (const SettingKey& setting : ConfigurationKeys) {
        setByKey(settings, setting.key, "7");
        appendSetting(lines, settings, setting);
        setByKey(settings, setting.key, "8");
    }
    EXPECT_THAT(lines, testing::Not(testing::HasSubstr("8")));
    setByKey(settings, "HOST_ALIAS", "a, =b");
    setByKey(settings, "MAX_LEVELS", "-32768");
    setByKey(settings, "FILEMASKS", ",.dot,,x,");
    EXPECT_EQ(settings.profile.HOST_ALIAS, "a, =b");
    EXPECT_EQ(settings.profile.MAX_LEVELS, -32768);
    EXPECT_EQ(settings.configuration.masks.lstFileMasks.Line(1), "X");
    EXPECT_EQ(settings.configuration.fileMasksText, ".DOT,X");
    for (const char* name : {"none", "tls", "implicit", "sftp"}) {
        setByKey(settings, "ENCRYPTION", name);
        EXPECT_EQ(nameOf(settings.profile.ENCRYPTION), name);
    }
    setByKey(settings, "CONNECTIONS", "16");
    EXPECT_EQ(settings.profile.CONNECTIONS, 16);
}

TEST(SetByKey, SaysWhyItRefuses) {
    for (const char* value : {"abc", "", "1.5", " 1", "70000"}) {
        EXPECT_EQ(refusal("HOST_PORT", value),
                  std::string("HOST_PORT takes a whole number from -32768 to 32767, not \"") +
                      value + "\"");
    }
    EXPECT_EQ(refusal("RULES", "Web"), "RULES takes classic or web, not \"Web\"");
    EXPECT_EQ(refusal("ENCRYPTION", "ssl"),
              "ENCRYPTION takes none, tls, implicit or sftp, not \"ssl\"");
    for (const char* value : {"0", "17", "-1"}) {
        EXPECT_EQ(refusal("CONNECTIONS", value),
                  std::string("CONNECTIONS takes a number from 1 to 16, not \"") + value + "\"");
    }
    EXPECT_THAT(refusal("TRUSTED", "yes"), testing::HasSubstr("SHA-256"));
    EXPECT_EQ(refusal("debug", "1"), "there is no setting \"debug\"");
    EXPECT_THAT(refusal("USER_PASSWORD", "secret"), testing::HasSubstr("other users"));
}

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

// Of the empty file, as "openssl dgst -sha256" and ssh-keygen print it.
constexpr Sha256 OfNothing = {0xe3, 0xb0, 0xc4, 0x42, 0x98, 0xfc, 0x1c, 0x14, 0x9a, 0xfb, 0xf4,
                              0xc8, 0x99, 0x6f, 0xb9, 0x24, 0x27, 0xae, 0x41, 0xe4, 0x64, 0x9b,
                              0x93, 0x4c, 0xa4, 0x95, 0x99, 0x1b, 0x78, 0x52, 0xb8, 0x55};
const std::string Hex = "E3:B0:C4:42:98:FC:1C:14:9A:FB:F4:C8:99:6F:B9:24:27:AE:41:E4:64:9B:93:4C:"
                        "A4:95:99:1B:78:52:B8:55";
const std::string Base64 = "SHA256:47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU";

TEST(Fingerprint, IsReadAsItIsPrinted) {
    EXPECT_EQ(certificateFingerprint(OfNothing), Hex);
    EXPECT_EQ(keyFingerprint(OfNothing), Base64);
    std::string bare = Hex;
    bare.erase(std::remove(bare.begin(), bare.end(), ':'), bare.end());
    std::string small = bare;
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const std::string& text : {Hex, bare, small, Base64, Base64 + "="}) {
        EXPECT_EQ(fingerprintIn(text), OfNothing) << text;
    }
    for (const std::string& text :
         {std::string(), Hex + ":", Hex.substr(1), bare + "0", ":" + bare, Base64.substr(7),
          Base64 + "A", Base64.substr(0, 49), "SHA256:" + Hex, Hex.substr(0, 93) + "G5",
          Base64.substr(0, 49) + "V", std::string(64, ':'), Hex.substr(0, 92) + "::5"}) {
        EXPECT_FALSE(fingerprintIn(text)) << text;
    }
}

} // namespace
} // namespace quillmark
