#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillmark {

/// Why an address gave no whole answer.
enum class UrlFailure : std::uint8_t {
    None,
    NoAddress,        ///< Not an address of http or https.
    UnknownName,      ///< Its host has no entry in the name system.
    Refused,          ///< Nobody listens there.
    Untrusted,        ///< No secure connection, or a certificate that is not good.
    PrivateNetwork,   ///< It leads into a network that must not be reached.
    EndlessRedirects, ///< More redirects than browsers follow.
    RedirectNowhere,  ///< A redirect to something other than http or https.
    TimedOut,
    Broken,  ///< The connection was lost, or the answer is not HTTP.
    NotAsked ///< The time for all addresses was over, or the run is being aborted.
};

/// One redirect on the way to an answer.
struct Redirect {
    int status = 0;
    std::string to; ///< Absolute.
};

/// What became of a request. A whole answer has a status and no failure; an answer whose body was
/// damaged or late has both.
struct UrlAnswer {
    UrlFailure failure = UrlFailure::None;
    int status = 0;                  ///< Of the last answer; 0 where there was none.
    std::vector<Redirect> redirects; ///< The last one leads to the address that answered.
};

} // namespace quillmark
