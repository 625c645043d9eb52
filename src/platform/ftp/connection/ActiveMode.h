#pragma once

#include "platform/ftp/connection/ControlConnection.h"
#include "platform/ftp/connection/DataConnection.h"

namespace quillmark {

/// Data connections that the host opens, to the address from which we speak with it: named with
/// EPRT (RFC 2428), or with PORT where the host does not take that.
class ActiveMode {
public:
    explicit ActiveMode(ControlConnection& control) : control_(control) {}

    /// Throws ConnectionLost when the host takes neither.
    DataConnection open();

private:
    ControlConnection& control_;
    bool extended_ = true;
};

} // namespace quillmark
