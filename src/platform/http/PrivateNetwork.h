#pragma once

#include <sys/socket.h>

namespace quillmark {

/// Whether an address belongs to this computer, to its own network or to no one in the public
/// internet (IANA's registries of special-purpose addresses), also where IPv6 wraps such an IPv4
/// address. So is every family of addresses but these two.
bool isPrivate(const sockaddr& address);

} // namespace quillmark
