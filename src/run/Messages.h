#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The one way in which every part of the program reports progress.
class Messages {
public:
    virtual ~Messages() = default;

    /// Posts one message. Debug messages are for the log of somebody who hunts a fault and go
    /// nowhere unless the user asked for them. Throws a Failure when the log file cannot be
    /// written.
    virtual void MessageHandler(bool debug, std::string_view text) = 0;

    /// Whether a debug message would go anywhere. If not, it is not even put together.
    virtual bool wantsDebug() const = 0;

    /// Posts a normal message made of the parts.
    template <typename... Parts> void post(const Parts&... parts) {
        MessageHandler(false, joined(parts...));
    }

    /// Posts a debug message made of the parts.
    template <typename... Parts> void postDebug(const Parts&... parts) {
        if (wantsDebug()) {
            MessageHandler(true, joined(parts...));
        }
    }

private:
    template <typename... Parts> static std::string joined(const Parts&... parts) {
        std::string text;
        (text.append(parts), ...);
        return text;
    }
};

} // namespace quillmark
