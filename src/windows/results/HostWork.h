#pragma once

#include <functional>

namespace quillmark {

/// Runs work that talks to the host: the window stays alive meanwhile, and nothing else can be
/// started. The work throws nothing.
using HostWork = std::function<void(const std::function<void()>& work)>;

} // namespace quillmark
