// What the web answers: bodies in any pieces, addresses to be redirected to.

#include "base/Failure.h"
#include "classic/verify/PhraseSearch.h"
#include "fuzz/Fuzz.h"
#include "platform/http/WebAddress.h"
#include "web/links/LinkAddress.h"
#include "web/links/LinkOptions.h"

namespace quillmark::test {
namespace {

/// A text is found in whatever pieces it comes.
void search(FuzzedDataProvider& data) {
    const std::string phrase = data.ConsumeRandomLengthString(5) + "x";
    PhraseSearch pieces(phrase);
    std::string body;
    while (data.remaining_bytes() > 0) {
        const std::string piece = data.ConsumeRandomLengthString(8);
        pieces.take(piece);
        body += piece;
    }
    require(pieces.found() == (body.find(phrase) != std::string::npos));
}

void address(const std::string& text) {
    const auto link = web::linkAddressOf(text, "https");
    require(!link || link->address.starts_with("http"));
    try {
        require(web::headerRuleOf(text).line.find_first_of("\r\n") == std::string::npos);
    } catch (const Failure&) {
    }
    if (const auto address = WebAddress::parse(text)) {
        require(address->host().size() <= 3 * text.size());
        require(WebAddress::parse(address->comparable()).has_value());
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    if (data.ConsumeBool()) {
        search(data);
    } else {
        address(data.ConsumeRemainingBytesAsString());
    }
}

} // namespace quillmark::test
