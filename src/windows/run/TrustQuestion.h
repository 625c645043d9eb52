#pragma once

#include "run/HostTrust.h"

#include <QWidget>

namespace quillmark {

/// Shows a host whose identity was refused and asks whether to trust it from now on; Enter and
/// Escape answer No. Of a key that has changed the user is only told: it is never trusted.
bool asksToTrust(QWidget* owner, const HostIdentity& identity);

} // namespace quillmark
