#include "platform/http/PrivateNetwork.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <netinet/in.h>

namespace quillmark {

namespace {

using Ip6 = std::array<std::uint8_t, 16>;

/// The addresses whose first `bits` are those of `prefix`.
struct Network {
    Ip6 prefix;
    unsigned bits;
};

constexpr std::array<Network, 10> Private4 = {{
    {{0}, 8}, // "This network".
    {{10}, 8},
    {{100, 64}, 10},  // Behind a provider's address translation.
    {{127}, 8},       // This computer.
    {{169, 254}, 16}, // Link-local.
    {{172, 16}, 12},
    {{192, 0, 0}, 24}, // Protocol assignments.
    {{192, 168}, 16},
    {{198, 18}, 15}, // Benchmarks.
    {{224}, 3},      // Multicast, reserved and broadcast.
}};

constexpr std::array<Network, 5> Private6 = {{
    {{0x00, 0x64, 0xff, 0x9b, 0x00, 0x01}, 48}, // Translation to IPv4 within a network.
    {{0x01}, 64},                               // Discarded.
    {{0xfc}, 7},                                // Unique local.
    {{0xfe, 0x80}, 9},                          // Link-local, and what was site-local.
    {{0xff}, 8},                                // Multicast.
}};

/// Networks of IPv6 in which an IPv4 address follows the prefix, or ends the address.
struct Wrapping {
    Network network;
    std::size_t at; ///< Of the IPv4 address's first byte.
};
constexpr std::array<Wrapping, 4> Wrappings = {{
    {{{}, 96}, 12}, // ::1 and :: are 0.0.0.1 and 0.0.0.0 here.
    {{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}, 96}, 12}, // Mapped.
    {{{0x00, 0x64, 0xff, 0x9b}, 96}, 12},                   // Translation to IPv4.
    {{{0x20, 0x02}, 16}, 2},                                // 6to4.
}};

bool lies(const Ip6& address, const Network& network) {
    for (unsigned bit = 0; bit < network.bits; ++bit) {
        const unsigned mask = 0x80U >> bit % 8;
        if ((address.at(bit / 8) & mask) != (network.prefix.at(bit / 8) & mask)) {
            return false;
        }
    }
    return true;
}

template <typename Networks> bool liesInOne(const Ip6& address, const Networks& networks) {
    return std::any_of(networks.begin(), networks.end(),
                       [&](const Network& network) { return lies(address, network); });
}

bool isPrivate6(const Ip6& address) {
    for (const Wrapping& wrapping : Wrappings) {
        Ip6 wrapped{};
        std::copy_n(address.begin() + static_cast<std::ptrdiff_t>(wrapping.at), 4, wrapped.begin());
        if (lies(address, wrapping.network) && liesInOne(wrapped, Private4)) {
            return true;
        }
    }
    return liesInOne(address, Private6);
}

} // namespace

bool isPrivate(const sockaddr& address) {
    Ip6 bytes{};
    if (address.sa_family == AF_INET) {
        std::memcpy(bytes.data(), &reinterpret_cast<const sockaddr_in&>(address).sin_addr, 4);
        return liesInOne(bytes, Private4);
    }
    if (address.sa_family == AF_INET6) {
        std::memcpy(bytes.data(), &reinterpret_cast<const sockaddr_in6&>(address).sin6_addr, 16);
        return isPrivate6(bytes);
    }
    return true;
}

} // namespace quillmark
