// What a host sends: lines of replies, listings in any pieces.

#include "classic/inventory/HostInventory.h"
#include "fuzz/Require.h"
#include "platform/host/HostReply.h"
#include "platform/host/ListingLines.h"
#include "support/RunFakes.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace quillmark::test {
namespace {

constexpr std::string_view Password = "secret";

/// No line of a reply shows the password, however the host sends it back.
void reply(const std::string& bytes) {
    const int code = finalCode(bytes);
    require(code >= 0 && code <= 999);
    require(withoutPassword(bytes, Password).find(Password) == std::string::npos);
}

/// Enters the lines of a listing into the inventory.
void takeLines(const Lines& lines) {
    RunBench bench;
    bench.state.currentDirectory = "/www/";
    RunSounds sounds(bench.window, bench.settings.configuration);
    HostInventory inventory(bench.context, bench.limit, sounds);
    for (const std::string& line : lines) {
        inventory.FtpXCtl1_DirItem(line);
    }
    require(bench.lists.FileList.Count() == bench.lists.FileSizes.Count());
}

/// A listing gives the same lines in whatever pieces it comes.
void list(FuzzedDataProvider& data) {
    Lines lines;
    Lines linesOfPieces;
    const FtpComponent::DirItem keep = [&](std::string_view line) { lines.emplace_back(line); };
    const FtpComponent::DirItem keepOfPieces = [&](std::string_view line) {
        linesOfPieces.emplace_back(line);
    };
    ListingLines whole(keep);
    ListingLines pieces(keepOfPieces);
    std::string listing;
    while (data.remaining_bytes() > 0) {
        const std::string piece = data.ConsumeRandomLengthString(300);
        pieces.take(piece);
        listing += piece;
    }
    whole.take(listing);
    whole.finish();
    pieces.finish();
    require(lines == linesOfPieces);
    takeLines(lines);
}

} // namespace
} // namespace quillmark::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace quillmark::test;
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeBool()) {
        reply(data.ConsumeRemainingBytesAsString());
    } else {
        list(data);
    }
    return 0;
}
