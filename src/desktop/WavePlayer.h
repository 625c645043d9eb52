#pragma once

#include <QSoundEffect>

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace quillmark {

/// Plays wave files on the desktop's sound device; a new sound ends the one before. Without a
/// device nothing is heard; if the file is missing, the desktop beeps.
class WavePlayer {
public:
    /// Looks for a sound in the program's folder, then among those that came with the program; both
    /// in the machine's own form. The sound device is not opened before the first sound.
    WavePlayer(std::filesystem::path programFolder, std::filesystem::path installedSounds);
    ~WavePlayer();
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;

    /// Starts the file of that name followed by ".WAV" and returns at once.
    void play(std::string_view name);

private:
    std::vector<std::filesystem::path> folders_;
    std::unique_ptr<QSoundEffect> sound_;
};

} // namespace quillmark
