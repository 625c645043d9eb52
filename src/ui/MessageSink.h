#pragma once

#include <string_view>

namespace quillmark {

/// Shows messages to the user while they are posted: on the terminal, or in the window.
class MessageSink {
public:
    virtual ~MessageSink() = default;

    /// One message, without a line end. Debug messages come only to a sink that wants them.
    virtual void posted(bool debug, std::string_view text) = 0;
    /// Whether the sink shows debug messages.
    virtual bool wantsDebug() const = 0;
};

} // namespace quillmark
