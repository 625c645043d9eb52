#pragma once

#include "run/HostTrust.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmark {

class HostConnection;

/// What the run asks of the host.
struct HostOperation {
    enum class Kind : std::uint8_t {
        LogIn,
        List,
        ListFacts,
        Retrieve,
        Delete,
        RemoveDirectory,
        Goodbye
    };

    Kind kind = Kind::LogIn;
    std::string
        path; ///< In "/" form, as bytes; a listing without a path is of the current directory.

    bool operator==(const HostOperation&) const = default;
};

/// How an operation went.
struct HostOutcome {
    enum class Kind : std::uint8_t {
        Done,
        Refused, ///< The host said no, and the conversation goes on.
        Broken,  ///< The data connection failed, and the conversation goes on.
        Lost,    ///< No connection, no login, or the host fell silent.
        Ended,   ///< By Stop, or by the taker of the bytes.
    };
    Kind kind = Kind::Done;
    std::string reason = {}; ///< Why it was refused or lost; never holds the password.
    bool openedAnew = false; ///< The control connection was opened for this operation.
    bool loggedIn = false;   ///< The login of the control connection had succeeded.
    std::optional<HostIdentity> refused = {}; ///< Who the host is, if it was not believed.
};

/// What became of a task since the run last looked.
struct HostNews {
    int attempt = 0; ///< The bytes of an earlier one count no more.
    std::string bytes;
    std::vector<std::string> trace;
    std::vector<std::string> notes;     ///< Messages for the user.
    std::optional<HostOutcome> outcome; ///< Once it has ended.
};

/// An operation on its way, shared by the run and the connection that performs it. All but the
/// operation is guarded by the HostTasks that it belongs to.
struct HostTask {
    using Clock = std::chrono::steady_clock;

    HostOperation operation;
    bool asked = false;           ///< The run waits for it.
    bool onlyWhenAsked = false;   ///< It failed ahead: what counts is how it goes when it is asked.
    bool begun = false;           ///< A connection has taken it.
    bool cancelled = false;       ///< Nobody wants it any more.
    bool late = false;            ///< The host took too long.
    bool gaveWay = false;         ///< It ended to set its connection free for what is asked for.
    HostConnection* by = nullptr; ///< What performs it now.
    Clock::time_point silentUntil; ///< When the host has been silent for too long.
    Clock::time_point endsAt;      ///< When it has lasted too long, whatever arrived.
    HostNews news;                 ///< Not taken by the run yet.
};

} // namespace quillmark
