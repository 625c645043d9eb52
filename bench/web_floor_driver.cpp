// The least that a checker of references has to do: walk a site, read its pages, and look up every
// href and src in a hash table. Nothing is parsed, resolved or judged.
//
//     web_floor_driver FOLDER [THREADS]
//
// prints the seconds, the pages, their megabytes and the references that were looked up.

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Site {
    std::unordered_set<std::string> names;
    std::vector<std::string> pages;
};

Site walk(const fs::path& folder) {
    Site site;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        site.names.insert(entry.path().string());
        const std::string extension = entry.path().extension().string();
        if (extension == ".html" || extension == ".htm") {
            site.pages.push_back(entry.path().string());
        }
    }
    return site;
}

struct Count {
    std::size_t bytes = 0;
    std::size_t references = 0;
    std::size_t found = 0;
};

std::string read(const std::string& file) {
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(stream.tellg()), '\0');
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

void lookUp(const Site& site, const std::string& page, Count& count) {
    const std::string bytes = read(page);
    const std::string_view text = bytes;
    const std::string folder = page.substr(0, page.rfind('/') + 1);
    std::string path;
    count.bytes += text.size();
    for (std::size_t at = text.find("=\""); at != std::string_view::npos;
         at = text.find("=\"", at + 2)) {
        const std::string_view before = text.substr(0, at);
        if (!before.ends_with("href") && !before.ends_with("src")) {
            continue;
        }
        const std::string_view value = text.substr(at + 2, text.find('"', at + 2) - at - 2);
        path.assign(folder).append(value.substr(0, value.find('#')));
        ++count.references;
        count.found += site.names.count(path);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fputs("usage: web_floor_driver FOLDER [THREADS]\n", stderr);
        return 2;
    }
    const auto begin = std::chrono::steady_clock::now();
    const Site site = walk(argv[1]);
    const std::size_t threads =
        argc > 2 ? std::strtoul(argv[2], nullptr, 10) : std::thread::hardware_concurrency();
    std::vector<Count> counts(threads);
    std::atomic<std::size_t> next = 0;
    {
        std::vector<std::jthread> running;
        for (Count& count : counts) {
            running.emplace_back([&site, &count, &next] {
                for (std::size_t i = next++; i < site.pages.size(); i = next++) {
                    lookUp(site, site.pages[i], count);
                }
            });
        }
    }
    Count all;
    for (const Count& count : counts) {
        all.bytes += count.bytes;
        all.references += count.references;
        all.found += count.found;
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    std::printf("%.3f s  %zu pages  %.1f MB  %zu references  %zu found\n", taken.count(),
                site.pages.size(), static_cast<double>(all.bytes) / 1e6, all.references, all.found);
    return 0;
}
