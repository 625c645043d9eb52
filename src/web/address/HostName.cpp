#include "web/address/HostName.h"

#include "web/address/PercentCoding.h"
#include "web/text/Ascii.h"

#include <algorithm>
#include <array>

namespace quillmark::web {

namespace {

constexpr unsigned LargestPort = 65535;

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/// The forbidden domain code points (WHATWG URL, section 3.2).
bool isForbidden(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code <= 0x20 || code == 0x7F ||
           std::string_view("#/:<>?@[\\]^|%").find(c) != std::string_view::npos;
}

bool isHexText(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return hexDigit(c) >= 0; });
}

bool isHexNumber(std::string_view text) {
    return (text.starts_with("0x") || text.starts_with("0X")) && isHexText(text.substr(2));
}

/// The number of an IPv4 part: decimal, "0x" hexadecimal or "0" octal; nothing if it is not a
/// number.
std::optional<std::uint64_t> ipv4Number(std::string_view part) {
    unsigned base = 10;
    if (isHexNumber(part)) {
        base = 16;
        part.remove_prefix(2);
    } else if (part.size() > 1 && part.front() == '0') {
        base = 8;
    } else if (part.empty()) {
        return std::nullopt;
    }
    std::uint64_t number = 0;
    for (const char c : part) {
        const auto digit = static_cast<unsigned>(hexDigit(c));
        if (digit >= base || number > UINT32_MAX) {
            return std::nullopt;
        }
        number = number * base + digit;
    }
    return number;
}

/// A host whose last part is a number must be an IPv4 address (section 3.5, IPv4 parser).
bool isSoundNumber(std::string_view host) {
    host.remove_suffix(host.ends_with('.') ? 1 : 0);
    const std::string_view last = host.substr(host.rfind('.') + 1);
    if (!allDigits(last) && !isHexNumber(last)) {
        return true;
    }
    int parts = 0;
    for (;;) {
        const std::size_t dot = host.find('.');
        const auto number = ipv4Number(host.substr(0, dot));
        ++parts;
        if (!number || parts > 4) {
            return false;
        }
        if (dot == std::string_view::npos) {
            // The last part stands for all bytes that the others leave: "127.1" is "127.0.0.1".
            static constexpr std::array<std::uint64_t, 5> Below = {0, 1ULL << 32U, 1ULL << 24U,
                                                                   1ULL << 16U, 256};
            return *number < Below.at(static_cast<std::size_t>(parts));
        }
        if (*number > 255) {
            return false;
        }
        host.remove_prefix(dot + 1);
    }
}

/// Whether the text has the characters of an IPv6 address. Its groups are not counted: a site with
/// such an address is compared by its text.
bool isSoundIpv6(std::string_view text) {
    return text.find(':') != std::string_view::npos &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return c == ':' || c == '.' || isHexText({&c, 1});
           });
}

std::optional<std::string> soundHost(std::string_view text) {
    if (text.starts_with('[')) {
        const bool sound = text.ends_with(']') && isSoundIpv6(text.substr(1, text.size() - 2));
        return sound ? std::optional(lowerAscii(std::string(text))) : std::nullopt;
    }
    std::string host = lowerAscii(percentDecoded(text));
    if (host.empty() || std::any_of(host.begin(), host.end(), isForbidden) ||
        !isSoundNumber(host)) {
        return std::nullopt;
    }
    return host;
}

std::optional<std::uint16_t> soundPort(std::string_view text, std::uint16_t ownPort) {
    unsigned port = 0;
    for (const char c : text) {
        port = port * 10 + static_cast<unsigned>(c - '0');
        if (!isDigit(c) || port > LargestPort) {
            return std::nullopt;
        }
    }
    return text.empty() || port == ownPort ? std::uint16_t{0} : static_cast<std::uint16_t>(port);
}

} // namespace

std::optional<Authority> parseAuthority(std::string_view text, std::uint16_t ownPort) {
    // User and password do not matter for where the address leads. (npos + 1 is 0.)
    text.remove_prefix(text.rfind('@') + 1);
    const std::size_t bracket = text.rfind(']');
    const std::size_t colon = text.find(':', bracket == std::string_view::npos ? 0 : bracket);
    auto host = soundHost(text.substr(0, colon));
    const auto port = soundPort(
        colon == std::string_view::npos ? std::string_view() : text.substr(colon + 1), ownPort);
    if (!host || !port) {
        return std::nullopt;
    }
    return Authority{*std::move(host), *port};
}

} // namespace quillmark::web
