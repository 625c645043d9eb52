#include "web/text/Source.h"

namespace quillmark::web {

Source inspect(std::string_view text) {
    // No branches, so that the compiler can look at many bytes at a time.
    unsigned char bits = 0;
    unsigned char returns = 0;
    unsigned char nuls = 0;
    for (const char c : text) {
        bits |= static_cast<unsigned char>(c);
        returns |= static_cast<unsigned char>(c == '\r');
        nuls |= static_cast<unsigned char>(c == '\0');
    }
    return {text, bits < 0x80, returns != 0, nuls != 0};
}

} // namespace quillmark::web
