#pragma once

#include "run/HostTrust.h"

#include <string>

namespace quillmark {

/// What a person has to know of a host whose identity was refused: why, and what it showed, in
/// lines that end in "\n".
std::string hostTrustText(const HostIdentity& identity);

} // namespace quillmark
