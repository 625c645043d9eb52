// What a host says of a folder, for a check with the web rules.

#include "fuzz/Fuzz.h"
#include "web/site/HostListing.h"

namespace quillmark::test {
namespace {

using web::HostListing;

void take(const std::string& line, void (HostListing::*take)(std::string_view line)) {
    HostListing listing;
    (listing.*take)(line);
    require(listing.entries.size() <= 1);
    for (const SiteEntry& entry : listing.entries) {
        require(!entry.name.empty() && entry.name != "." && entry.name != "..");
        require(entry.name.find('/') == std::string::npos);
        require(line.find(entry.name) != std::string::npos);
        require(line.find(entry.leadsTo) != std::string::npos);
    }
}

/// Whatever a name holds, a listing of this shape leads back to it.
void takeName(const std::string& name, std::uint64_t size) {
    HostListing listing;
    const std::string number = std::to_string(size);
    listing.takeLine("-rw-r--r--   1 me  me  " + number + " Jan 31 12:00 " + name + "\r\n");
    listing.takeLine("01-31-24  08:15PM " + number + " " + name + "\r\n");
    listing.takeFacts("type=file;size=" + number + "; " + name + "\r\n");
    const bool sound = !name.empty() && name != "." && name != ".." &&
                       name.find('/') == std::string::npos && !name.ends_with('\r') &&
                       !name.ends_with('\n');
    require(!sound || listing.entries.size() == 3);
    for (const SiteEntry& entry : listing.entries) {
        require(!sound || (entry.name == name && entry.size == size));
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    const auto number = data.ConsumeIntegral<std::uint64_t>();
    const std::string text = data.ConsumeRemainingBytesAsString();
    take(text, &HostListing::takeLine);
    take(text, &HostListing::takeFacts);
    takeName(text, number);
}

} // namespace quillmark::test
