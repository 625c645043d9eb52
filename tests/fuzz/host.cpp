// What a host sends: replies to commands, listings in any pieces, ports to connect to.

#include "classic/inventory/HostInventory.h"
#include "fuzz/Require.h"
#include "platform/ftp/ListingLines.h"
#include "platform/ftp/connection/ControlConnection.h"
#include "platform/ftp/connection/FtpFailures.h"
#include "support/RunFakes.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <sys/socket.h>

namespace quillmark::test {
namespace {

constexpr std::string_view Password = "secret";

struct CheckingTrace : FtpTrace {
    void Trace(std::string_view text) override {
        require(text.find(Password) == std::string_view::npos);
    }
};

/// The host sends these bytes and closes.
void reply(const std::string& bytes) {
    HookedEvents events;
    const RunState state;
    CheckingTrace trace;
    HostWait wait(events, state, {});
    std::array<int, 2> sockets{};
    require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, sockets.data()) == 0);
    ControlConnection control(FileDescriptor(sockets[0]), std::string(Password), wait, trace);
    {
        const FileDescriptor host(sockets[1]);
        if (send(host.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL) < 0) {
            return;
        }
    }
    try {
        for (;;) {
            const FtpReply reply = control.reply();
            require(reply.code >= 0 && reply.code <= 999);
            require(reply.text.find(Password) == std::string::npos);
            portIn(reply);
        }
    } catch (const ConnectionLost&) {
        return;
    }
}

/// Enters the lines of a listing into the inventory.
void takeLines(const Lines& lines) {
    ResultLists lists;
    RunState state;
    state.currentDirectory = "/www/";
    Settings settings;
    SetDefaultSettings(settings);
    RecordingMessages messages;
    DiskAdapter disk;
    SiteDisk siteDisk;
    FolderHost host;
    SilentWeb web;
    RecordingWindow window;
    HookedEvents events;
    Outside outside{messages, disk, host, web, window, events, siteDisk};
    RunContext context{lists, state, settings, outside, "program"};
    ListLimit limit(messages, state);
    RunSounds sounds(window, settings.configuration);
    HostInventory inventory(context, limit, sounds);
    for (const std::string& line : lines) {
        inventory.FtpXCtl1_DirItem(line);
    }
    require(lists.FileList.Count() == lists.FileSizes.Count());
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
