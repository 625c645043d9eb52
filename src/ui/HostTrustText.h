#pragma once

#include "run/HostTrust.h"

#include <string>

namespace quillmark {

/// What a person has to know of a host whose identity was refused: why, what it showed, and what to
/// think of it, in lines that end in "\n", empty ones between the parts. A fingerprint stands in a
/// line of its own.
std::string hostTrustText(const HostIdentity& identity);

} // namespace quillmark
