#pragma once

#include "run/RunListener.h"
#include "settings/Configuration.h"

#include <string_view>

namespace quillmark {

/// The sounds at the start, the end and the failure of a run. Each event alternates between two
/// sounds for the life of the program, and only while sounds are switched on.
class RunSounds {
public:
    RunSounds(RunListener& listener, const Configuration& configuration)
        : listener_(listener), configuration_(configuration) {}

    void start() { play(start_, "fastchug", "engine"); }
    void finish() { play(finish_, "moo", "dhombls"); }
    void failure() { play(failure_, "carcrsh", "klaxon"); }

private:
    void play(bool& toggle, std::string_view first, std::string_view second) {
        if (configuration_.SOUND == 0) {
            return;
        }
        listener_.play(toggle ? second : first);
        toggle = !toggle;
    }

    RunListener& listener_;
    const Configuration& configuration_;
    bool start_ = false;
    bool finish_ = false;
    bool failure_ = false;
};

} // namespace quillmark
