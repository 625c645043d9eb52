#pragma once

#include "run/HostTrust.h"

#include <QWidget>

namespace quillmark {

/// Shows a host whose identity was refused and asks whether to trust it from now on; No is what
/// Enter and Escape answer. A key that changed is told of, and not trusted.
bool asksToTrust(QWidget* owner, const HostIdentity& identity);

} // namespace quillmark
