// Times the reading of pages alone: web_read_driver FOLDER [TIMES] reads all pages of a folder into
// memory, then hands them to readPage and prints what it found and how fast.
#include "web/page/PageContent.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> readPages(const fs::path& folder) {
    std::vector<std::string> pages;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().extension().string().starts_with(".htm")) {
            std::ifstream stream(entry.path(), std::ios::binary);
            pages.emplace_back(std::istreambuf_iterator<char>(stream),
                               std::istreambuf_iterator<char>());
        }
    }
    return pages;
}

void timeReading(const std::vector<std::string>& pages) {
    std::size_t bytes = 0;
    std::size_t references = 0;
    std::size_t ids = 0;
    quillmark::web::PageContent content;
    const std::clock_t start = std::clock();
    for (const std::string& page : pages) {
        quillmark::web::readPage(page, quillmark::web::PageKind::Html, content);
        bytes += page.size();
        references += content.references.size();
        ids += content.ids.size();
    }
    const double took = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    std::cout << pages.size() << " pages, " << bytes / 1000000 << " MB, " << references
              << " references, " << ids << " ids in " << took
              << " s of one core: " << static_cast<double>(bytes) / 1e6 / took << " MB/s\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: web_read_driver FOLDER [TIMES]\n";
        return 2;
    }
    const std::vector<std::string> pages = readPages(argv[1]);
    for (int times = argc > 2 ? std::stoi(argv[2]) : 1; times > 0; --times) {
        timeReading(pages);
    }
    return 0;
}
