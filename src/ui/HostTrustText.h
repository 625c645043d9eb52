#pragma once

#include "run/HostTrust.h"

#include <string>

namespace quillmark {

/// What a person must know about a host whose identity was refused: why, what it showed, and what
/// to do. Lines end in "\n", an empty line separates the parts, and each fingerprint has a line of
/// its own.
std::string hostTrustText(const HostIdentity& identity);

} // namespace quillmark
