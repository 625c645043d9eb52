#include "desktop/WavePlayer.h"

#include <QApplication>
#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QUrl>
#include <QtGlobal>

#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace quillmark {

namespace {

std::optional<std::filesystem::path> soundFile(const std::vector<std::filesystem::path>& folders,
                                               std::string_view name) {
    for (const std::filesystem::path& folder : folders) {
        std::filesystem::path file = folder / std::string(name).append(".WAV");
        std::error_code ignored;
        if (std::filesystem::is_regular_file(file, ignored)) {
            return file;
        }
    }
    return std::nullopt;
}

/// Stops Qt from complaining on standard error while this lives: a machine without sound is not a
/// fault.
class Silence {
public:
    Silence() : before_(qInstallMessageHandler(drop)) {}
    ~Silence() { qInstallMessageHandler(before_); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    static void drop(QtMsgType /*type*/, const QMessageLogContext& /*place*/,
                     const QString& /*text*/) {}

    QtMessageHandler before_;
};

} // namespace

WavePlayer::WavePlayer(std::filesystem::path programFolder, std::filesystem::path installedSounds)
    : folders_{std::move(programFolder), std::move(installedSounds)} {}

WavePlayer::~WavePlayer() = default;

void WavePlayer::play(std::string_view name) {
    const auto file = soundFile(folders_, name);
    if (!file) {
        QApplication::beep();
        return;
    }
    const Silence silence;
    if (QMediaDevices::defaultAudioOutput().isNull()) {
        return;
    }
    sound_ = std::make_unique<QSoundEffect>();
    sound_->setSource(QUrl::fromLocalFile(QFile::decodeName(file->c_str())));
    sound_->play();
}

} // namespace quillmark
