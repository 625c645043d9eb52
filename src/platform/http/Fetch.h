#pragma once

#include "platform/http/Body.h"
#include "platform/http/FetchClock.h"

#include <cstddef>
#include <string>

namespace quillmark {

enum class FetchState { Waiting, Running, Answered, Failed };

/// One address and what has become of it so far.
struct Fetch {
    std::string address;   ///< To be requested next: as the page wrote it, or where it was sent to.
    std::string host;      ///< Of the address.
    std::size_t order = 0; ///< The lower, the sooner it will be asked for; 0 is now.
    int listed = 0;        ///< How often it will be asked for.
    int redirects = 0;
    FetchState state = FetchState::Waiting;
    FetchClock clock;
    Body body;            ///< As it was sent: possibly compressed.
    bool gzipped = false; ///< The body is compressed.
    bool ahead = true;    ///< Nobody asks for it now: its body counts as kept ahead.
    std::string failure;  ///< Why there is no answer.

    bool ended() const { return state == FetchState::Answered || state == FetchState::Failed; }
};

} // namespace quillmark
