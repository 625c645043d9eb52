#include "command/output/BaselineFile.h"

#include "base/Failure.h"
#include "command/output/Results.h"
#include "platform/TemporaryFile.h"

#include <fstream>
#include <sstream>

namespace quillmark {

namespace {

constexpr mode_t ForAll = 0666;

} // namespace

std::optional<Baseline> loadBaseline(const std::string& file) {
    if (file.empty()) {
        return std::nullopt;
    }
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    if (!stream) {
        throw CannotStart("the baseline \"" + file +
                          "\" cannot be read; write one with --write-baseline FILE");
    }
    try {
        return parseBaseline(bytes.str());
    } catch (const Failure& failure) {
        throw CannotStart("\"" + file + "\" is not a baseline: " + failure.description());
    }
}

void saveBaseline(const std::string& file, const SiteResults& site) {
    writing(file, [&] { replaceFile(file, baselineText(baselineOf(site)), ForAll); });
}

} // namespace quillmark
