#pragma once

#include "run/HostTrust.h"

namespace quillmark {

/// Trusts nobody: a job has nobody to ask. Tells on standard error what the host showed, and the
/// option with which the next check trusts it.
class TerminalTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& identity) override;
};

} // namespace quillmark
