#pragma once

#include <string_view>

namespace quillmark {

/// Plays the wave files of the program's folder.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Starts the file of that name followed by ".WAV" and returns at once; what goes wrong is
    /// ignored.
    virtual void play(std::string_view name) = 0;
};

} // namespace quillmark
