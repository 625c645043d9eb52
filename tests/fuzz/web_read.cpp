// The readers of pages, sheets, manifests and feeds. What libgumbo
// finds in HTML must be found here, too, where its tree is sure to keep the tags as they stand.

#include "core/web/read/Judge.h"
#include "fuzz/Fuzz.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quillmark::test {
namespace {

using namespace web;
using namespace web::test;

/// Whether libgumbo goes by the same rules: PHP is read by ours alone, and in trees of SVG, MathML,
/// frames, selects and templates it drops or moves tags. Texts that are decoded have other offsets,
/// and it takes control characters for errors.
bool judgeable(const std::string& page) {
    std::string lower = page;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    constexpr auto Marks = std::to_array<std::string_view>(
        {"<svg", "<math", "<?", "<frame", "<select", "<template", "style", "&"});
    return std::all_of(page.begin(), page.end(),
                       [](char c) { return c == '\n' || c == '\t' || (c >= ' ' && c <= '~'); }) &&
           std::none_of(Marks.begin(), Marks.end(), [&lower](std::string_view mark) {
               return lower.find(mark) != std::string::npos;
           });
}

void compare(const std::string& page, const PageContent& content) {
    const Lines ours = linesOf(content);
    for (const std::string& line : judge(content.decoded.empty() ? page : content.decoded)) {
        // libgumbo does not say where a value that is empty would be.
        require(line.ends_with(' ') || std::find(ours.begin(), ours.end(), line) != ours.end());
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    const auto kind = static_cast<PageKind>(data.ConsumeIntegralInRange(0, 5));
    const std::string page = data.ConsumeRemainingBytesAsString();
    PageContent content;
    readPage(page, kind, content);
    if (kind == PageKind::Html && judgeable(page)) {
        compare(page, content);
    }
}

} // namespace quillmark::test
