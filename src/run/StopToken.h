#pragma once

namespace quillmark {

/// Tells long work whether to end. It is asked often; an implementation may let events run.
class StopToken {
public:
    virtual ~StopToken() = default;
    /// Whether the work is to end.
    virtual bool stopped() = 0;
};

} // namespace quillmark
