#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace quillmark {

/// How many fetches run at once, how long each may take, and how much of what arrives is read.
/// Lengths are in bytes.
struct FetchLimits {
    static constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;

    std::size_t inAll = 32;                 ///< Requests at once.
    std::optional<std::size_t> toOneHost{}; ///< Replaces the figure in FetchManners.
    std::chrono::milliseconds connect{10'000};
    std::chrono::milliseconds wholeFetch{30'000}; ///< From the connection to the last byte, with
                                                  ///< all redirects.
    std::chrono::milliseconds head{10'000};       ///< The same for a HEAD: a GET may follow.
    int redirects = 10;
    std::size_t body = 10 * Mebibyte; ///< Decoded; a longer body counts as complete at this length.
    std::size_t unread = Mebibyte / 64;     ///< The same for a body that nobody reads.
    std::size_t header = Mebibyte / 8;      ///< A longer header ends the fetch.
    std::chrono::milliseconds pause{1'000}; ///< Before the first retry; the second waits three
                                            ///< times as long.
    std::chrono::seconds longestWish{60};   ///< No retry if a server wants a longer pause.
};

} // namespace quillmark
