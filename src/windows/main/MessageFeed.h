#pragma once

#include "ui/MessageSink.h"

#include <functional>
#include <utility>

namespace quillmark {

/// Tells a window that there are new messages; it reads them from the message list.
class MessageFeed : public MessageSink {
public:
    void onPosted(std::function<void()> posted) { posted_ = std::move(posted); }

    void posted(bool /*debug*/, std::string_view /*text*/) override { posted_(); }
    /// A window does not show debug messages.
    bool wantsDebug() const override { return false; }

private:
    std::function<void()> posted_ = [] {};
};

} // namespace quillmark
