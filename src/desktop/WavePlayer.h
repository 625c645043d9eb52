#pragma once

#include "run/SoundPlayer.h"

#include <QSoundEffect>

#include <filesystem>
#include <memory>
#include <vector>

namespace quillmark {

/// Plays wave files on the desktop's sound device; a new sound ends the one before. Without a
/// device nothing is heard, and without the file the desktop's own sound is.
class WavePlayer : public SoundPlayer {
public:
    /// Looks for a sound in the program's folder, then among those that came with the program; both
    /// in the machine's own form. The sound device is not touched before the first sound.
    WavePlayer(std::filesystem::path programFolder, std::filesystem::path installedSounds);
    ~WavePlayer() override;
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;

    void play(std::string_view name) override;

private:
    std::vector<std::filesystem::path> folders_;
    std::unique_ptr<QSoundEffect> sound_;
};

} // namespace quillmark
