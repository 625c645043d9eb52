// Paths of any bytes, and names on their way to a terminal.

#include "base/Paths.h"
#include "base/Failure.h"
#include "base/PathParser.h"
#include "base/Printable.h"
#include "base/UpperCase.h"
#include "classic/resolve/UpperLevels.h"
#include "fuzz/Fuzz.h"

namespace quillmark::test {
namespace {

void split(const std::string& path) {
    const PathParser parser(path);
    require(std::string(parser.Path()).append(parser.FileName()) == path);
    require(path.ends_with(parser.Extension()));
    require(parser.FileName().starts_with(parser.BaseName()));
    require(path.ends_with(parser.HostPath()));
    require(StartLevel(path) >= 0);
    require(ToForwardSlashes(ToBackSlashes(path)).find('\\') == std::string::npos);
    require(WithTrailingBackslash(path).ends_with('\\'));
}

void climb(const std::string& reference, const std::string& directory, bool follow) {
    try {
        ResolveUpperLevels("../" + reference, directory, follow);
    } catch (const Failure& failure) {
        require(failure.number() == 5);
    }
}

void print(const std::string& name, std::size_t columns) {
    const std::string shown = printable(name, columns);
    require(printable(shown) == shown);
    require(upperAscii(name).size() == name.size());
    require(upperCase(upperCase(name)) == upperCase(name));
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    const bool follow = data.ConsumeBool();
    const auto columns = data.ConsumeIntegral<std::uint8_t>();
    const std::string first = data.ConsumeRandomLengthString(200);
    const std::string second = data.ConsumeRemainingBytesAsString();
    split(first);
    climb(first, second, follow);
    climb(first, "/" + second + "/", follow);
    print(first, columns);
}

} // namespace quillmark::test
