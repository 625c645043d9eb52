#pragma once

#include "platform/http/Body.h"

#include <cstddef>
#include <string>

namespace quillmark {

/// The first `limit` bytes of what a body, a gzip stream, stands for; a stream that ends too early
/// gives what it has. Throws a Failure when it is no gzip stream, or a damaged one.
std::string gunzip(const Body& body, std::size_t limit);

} // namespace quillmark
