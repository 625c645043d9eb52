#pragma once

#include <chrono>
#include <cstddef>

namespace quillmark {

/// How many fetches at once, how long each may take, and how much of what arrives is kept.
struct FetchLimits {
    static constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;

    std::size_t inAll = 32;    ///< Requests at once.
    std::size_t toOneHost = 8; ///< Requests at once to one host name, whatever the port.
    std::chrono::milliseconds connect{10'000};
    std::chrono::milliseconds wholeFetch{30'000}; ///< From the connection to the last byte, with
                                                  ///< all redirects.
    int redirects = 10;
    std::size_t body = 10 * Mebibyte;     ///< A longer body counts as complete at this length.
    std::size_t header = Mebibyte / 8;    ///< A longer header is no answer.
    std::size_t keptAhead = 8 * Mebibyte; ///< Bodies that nobody has asked for yet, in sum.
};

} // namespace quillmark
