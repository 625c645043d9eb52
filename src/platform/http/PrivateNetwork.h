#pragma once

#include <sys/socket.h>

namespace quillmark {

/// Whether an address belongs to this computer, to its own network or to nobody in the public
/// internet (IANA's registries of special-purpose addresses). An IPv6 address that wraps such an
/// IPv4 address counts too, and so does every address that is neither IPv4 nor IPv6.
bool isPrivate(const sockaddr& address);

} // namespace quillmark
