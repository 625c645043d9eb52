#pragma once

#include "run/RunWindow.h"
#include "run/SoundPlayer.h"

namespace quillmark {

/// A run without a window: there is nothing to disable and nothing to rebuild.
class HeadlessWindow : public RunWindow {
public:
    void enterRunState() override {}
    void leaveRunState() override {}
    void showTraceWindow() override {}
    void ShowResults() override {}
};

/// A terminal, and the machine of a CI job above all, is quiet.
class SilentPlayer : public SoundPlayer {
public:
    void play(std::string_view /*name*/) override {}
};

} // namespace quillmark
