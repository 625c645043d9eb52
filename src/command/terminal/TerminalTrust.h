#pragma once

#include "run/HostTrust.h"

namespace quillmark {

/// Trusts no host, since a job has nobody to ask. Prints on standard error what the host showed,
/// and the option that makes the next check trust it.
class TerminalTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& identity) override;
};

} // namespace quillmark
