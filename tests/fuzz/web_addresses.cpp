// References and what they lead to. Whatever a page writes, the path that comes out stays in the
// site, and the reference that is proposed for a file leads to it.

#include "fuzz/Fuzz.h"
#include "web/address/Address.h"
#include "web/address/ReferenceText.h"
#include "web/address/RelativeReference.h"
#include "web/html/Srcset.h"

#include <algorithm>
#include <optional>

namespace quillmark::test {
namespace {

using namespace web;

bool isSegment(std::string_view name) {
    return !name.empty() && name != "." && name != "..";
}

/// Whether every folder and the file on the path have names that a file system can hold.
bool isPathOfFile(std::string_view path) {
    while (true) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (!isSegment(path.substr(0, end))) {
            return false;
        }
        if (end == path.size()) {
            return true;
        }
        path.remove_prefix(end + 1);
    }
}

std::string_view withoutFinalSlash(std::string_view path) {
    path.remove_suffix(path.ends_with('/') ? 1 : 0);
    return path;
}

void staysInSite(const Addresses& addresses, const std::string& reference, const Base& base) {
    Address address;
    addresses.resolve(reference, base, address);
    require(address.leads != Leads::IntoSite || address.unreachable || address.path.empty() ||
            isPathOfFile(withoutFinalSlash(address.path)));
}

void leadsBack(const Addresses& addresses, const std::string& page, const std::string& file) {
    if (!isPathOfFile(page) || !isPathOfFile(file) ||
        (page + file).find('\0') != std::string::npos) {
        return;
    }
    Address address;
    addresses.resolve(relativeReference(page, file), addresses.baseOf(page, std::nullopt), address);
    require(address.leads == Leads::IntoSite && address.path == file && !address.fragment);
}

void takeApart(std::string_view value) {
    std::size_t last = 0;
    for (Srcset srcset(value); srcset.next();) {
        require(srcset.offset() >= last && !srcset.address().empty());
        require(srcset.offset() + srcset.address().size() <= value.size());
        last = srcset.offset() + srcset.address().size();
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    const auto site = data.ConsumeBool() ? parseSiteUrl("https://www.example.org/docs/")
                                         : std::optional<SiteUrl>();
    const Addresses addresses(site);
    const std::string page = data.ConsumeRandomLengthString();
    const std::string href = data.ConsumeRandomLengthString();
    const std::string reference = data.ConsumeRemainingBytesAsString();
    staysInSite(addresses, reference, addresses.baseOf("a/b.html", href));
    staysInSite(addresses, reference, addresses.baseOf("a/b.html", std::nullopt));
    leadsBack(addresses, page, reference);
    takeApart(reference);
    isRoute(reference);
}

} // namespace quillmark::test
