#pragma once

#include "platform/ftp/FtpXCtl.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::test {

struct RecordedMessages : Messages {
    std::vector<std::string> texts;
    void MessageHandler(bool /*debug*/, std::string_view text) override {
        texts.emplace_back(text);
    }
    bool wantsDebug() const override { return false; }
};

struct RecordedTrace : FtpTrace {
    std::vector<std::string> texts;
    void Trace(std::string_view text) override { texts.emplace_back(text); }
    long count(std::string_view text) const { return std::count(texts.begin(), texts.end(), text); }
};

struct ScriptedEvents : EventLoop {
    std::function<void()> event = [] {};
    void DoEvents() override { event(); }
};

/// A component with everything that it talks to, and a folder for the pages.
struct Client {
    explicit Client(const FtpTimeouts& timeouts = {})
        : ftp(messages, events, state, trace, timeouts) {}

    std::vector<std::string> list(std::string_view directory) {
        std::vector<std::string> lines;
        ftp.list(directory, [&lines](std::string_view line) { lines.emplace_back(line); });
        return lines;
    }
    bool retrieve(std::string_view file) {
        return ftp.retrieve(file, (folder.path() / "page").string());
    }
    std::string page() const { return folder.read("page"); }
    bool folderIsEmpty() const { return std::filesystem::is_empty(folder.path()); }

    RunState state;
    RecordedMessages messages;
    RecordedTrace trace;
    ScriptedEvents events;
    TempFolder folder;
    FtpXCtl ftp;
};

} // namespace quillmark::test
