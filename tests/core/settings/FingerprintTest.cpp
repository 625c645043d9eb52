#include "settings/Fingerprint.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillmark {
namespace {

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
