#pragma once

#include "run/UrlAnswer.h"
#include "store/Progress.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Reads the body of an answer while it arrives, so that nobody has to keep it.
class BodyReader {
public:
    virtual ~BodyReader() = default;

    /// A body begins; what came before belonged to a redirect or to an earlier try.
    virtual void begin() = 0;
    /// Takes the next bytes, decoded; returns whether more are wanted.
    virtual bool take(std::string_view bytes) = 0;
    /// The body is complete, or as much of it as is ever read. `contentType` is as the server sent
    /// it.
    virtual void end(std::string_view /*contentType*/) {}
};

/// An address to request, and what reads the body of its answer (null: nobody). The reader must
/// outlive the fetch.
struct UrlRequest {
    std::string url;
    BodyReader* reader = nullptr;
};

/// A header for all addresses that begin with a prefix.
struct HeaderRule {
    std::string prefix; ///< "https://www.site.example/members/".
    std::string line;   ///< "Name: value".
};

/// How servers are asked, and how hard.
struct FetchManners {
    std::size_t toOneHost = 8; ///< Requests at once to one host name, whatever the port.
    bool headFirst = false;    ///< Sends HEAD, and GET only where that proves nothing.
    int retries = 0; ///< After a time-out, a lost connection, 429 and 5xx, with growing pauses.
    bool keepCookies = false;    ///< From redirect to redirect, never from address to address.
    bool excludePrivate = false; ///< Refuses what lies in this computer or its own network.
    std::vector<HeaderRule> headers;
    std::chrono::seconds overall{0}; ///< For all addresses together; 0 is without end.
    Progress* progress = nullptr;    ///< Shows how many have ended.
};

/// Requests addresses of the web.
class UrlFetcher {
public:
    virtual ~UrlFetcher() = default;

    /// Tells which addresses will be opened next, in this order, so that they can be asked ahead;
    /// each is asked once however often it is listed. Ends and forgets what was expected before.
    virtual void expect(const std::vector<UrlRequest>& requests, const FetchManners& manners) = 0;

    /// The answer of an address, expected or not. Lets events run while it waits. When the run is
    /// being aborted, it returns at once with UrlFailure::NotAsked.
    virtual UrlAnswer OpenURL(const UrlRequest& request) = 0;
};

} // namespace quillmark
