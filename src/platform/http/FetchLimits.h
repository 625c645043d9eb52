#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace quillmark {

/// How many fetches at once, how long each may take, and how much of what arrives is looked at.
struct FetchLimits {
    static constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;

    std::size_t inAll = 32;                 ///< Requests at once.
    std::optional<std::size_t> toOneHost{}; ///< Instead of what the manners say.
    std::chrono::milliseconds connect{10'000};
    std::chrono::milliseconds wholeFetch{30'000}; ///< From the connection to the last byte, with
                                                  ///< all redirects.
    std::chrono::milliseconds head{10'000};       ///< The same for a HEAD: a GET may follow.
    int redirects = 10;
    std::size_t body = 10 * Mebibyte; ///< Decoded; a longer body counts as complete at this length.
    std::size_t unread = Mebibyte / 64;     ///< The same for a body that nobody reads.
    std::size_t header = Mebibyte / 8;      ///< A longer header is no answer.
    std::chrono::milliseconds pause{1'000}; ///< Before the first retry; the second waits three
                                            ///< times as long.
    std::chrono::seconds longestWish{60};   ///< A server that wants a longer pause is left alone.
};

} // namespace quillmark
