// Compares what readPage finds in all pages of some folders with what libgumbo finds:
// gumbo_compare FOLDER... prints each line that only one of them has; the exit status is 1 if there
// is any.
#include "core/web/read/Judge.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>

namespace {

namespace fs = std::filesystem;
using quillmark::web::PageContent;
using quillmark::web::test::Lines;

struct Totals {
    std::size_t pages = 0;
    std::size_t lines = 0;
    std::size_t differences = 0;
};

void printMissing(const fs::path& page, char mark, const Lines& lines, const Lines& other) {
    const std::multiset<std::string> known(other.begin(), other.end());
    for (const std::string& line : lines) {
        if (!known.contains(line)) {
            std::cout << page.string() << " " << mark << " " << line << "\n";
        }
    }
}

void compare(const fs::path& page, Totals& totals) {
    std::ifstream stream(page, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    PageContent content;
    readPage(bytes, quillmark::web::PageKind::Html, content);
    std::string_view text = content.decoded.empty() ? bytes : content.decoded;
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    const Lines ours = quillmark::web::test::linesOf(content);
    const Lines judged = quillmark::web::test::judge(text);
    ++totals.pages;
    totals.lines += judged.size();
    if (ours == judged) {
        return;
    }
    ++totals.differences;
    std::cout << page.string() << " differs\n";
    printMissing(page, '+', ours, judged);
    printMissing(page, '-', judged, ours);
}

} // namespace

int main(int argc, char** argv) {
    Totals totals;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : fs::recursive_directory_iterator(argv[i])) {
            const std::string extension = entry.path().extension().string();
            if (entry.is_regular_file() &&
                (extension.starts_with(".htm") || extension == ".xhtml")) {
                compare(entry.path(), totals);
            }
        }
    }
    std::cout << totals.pages << " pages, " << totals.lines << " references and ids, "
              << totals.differences << " pages differ\n";
    return totals.pages > 0 && totals.differences == 0 ? 0 : 1;
}
