#pragma once

#include "platform/ftp/connection/ControlConnection.h"
#include "platform/ftp/connection/DataConnection.h"
#include "platform/ftp/connection/HostWait.h"

#include <cstdint>
#include <optional>

namespace quillmark {

/// Data connections that we open: to the address of the control connection, whatever the host says,
/// at the port that it names for EPSV (RFC 2428), or for PASV where it does not take EPSV or its
/// port cannot be reached.
class PassiveMode {
public:
    /// `ahead` is whether askAhead() may ask.
    PassiveMode(ControlConnection& control, HostWait& wait, bool ahead)
        : control_(control), wait_(wait), ahead_(ahead) {}

    /// Returns a connection that is made; nothing may be left to settle(). Throws ConnectionLost
    /// when there is none to be had.
    DataConnection open();

    /// Asks for the port of the next transfer before the last reply to this one is there, which
    /// saves the next one a round trip.
    void askAhead();
    /// Waits for the reply to askAhead(), if there is one to come, and keeps the port. Throws
    /// ConnectionLost when the host answered something else.
    void settle();

    /// Whether the reply to askAhead() is still to come.
    bool hasAskedAhead() const { return askedAhead_; }

private:
    std::optional<DataConnection> reach(std::optional<std::uint16_t> port);
    std::uint16_t passivePort();

    ControlConnection& control_;
    HostWait& wait_;
    bool ahead_;
    bool extended_ = true;
    bool askedAhead_ = false;
    std::optional<std::uint16_t> kept_; ///< Named by the host and not used yet.
};

} // namespace quillmark
