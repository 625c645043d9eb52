// Settings files of any bytes, values of any text, passwords.

#include "base/Failure.h"
#include "base/Paths.h"
#include "fuzz/Fuzz.h"
#include "platform/ProgramFolder.h"
#include "settings/Cipher.h"
#include "settings/ConfigurationFile.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "settings/SettingValue.h"
#include "support/TempFolder.h"

namespace quillmark::test {
namespace {

void ignoreMessage(std::string_view /*text*/) {}

/// What a reading leaves behind, the next one reads whole and leaves alone. Only a quoted value can
/// hold line ends; it is written as it is, and read again as several lines.
void readConfiguration(const std::string& bytes) {
    const TempFolder folder;
    folder.write(ConfigurationFileName, bytes);
    ProgramFolder files(ToBackSlashes(folder.path().string()));
    Settings settings;
    SetDefaultSettings(settings);
    ReadConfigurations(settings, files, ignoreMessage);
    const std::string left = files.read(ConfigurationFileName);
    Settings next;
    SetDefaultSettings(next);
    ReadConfigurations(next, files, ignoreMessage);
    require(files.read(ConfigurationFileName) == left || bytes.find('"') != std::string::npos);
}

void readProfile(const std::string& bytes) {
    const TempFolder folder;
    folder.write("x.pro", bytes);
    ProgramFolder files(ToBackSlashes(folder.path().string()));
    Settings settings;
    LoadProfile(settings, files, "x");
    SaveProfile(settings, files, "y");
}

void scramble(const std::string& text) {
    require(DecryptPassword(EncryptPassword(text)) == text);
    try {
        DecryptPassword(text);
    } catch (const Failure& failure) {
        require(failure.number() == 5);
    }
}

void set(const std::string& key, const std::string& value) {
    Settings settings;
    try {
        setByKey(settings, key, value);
    } catch (const SettingError&) {
        return;
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    switch (data.ConsumeIntegralInRange(0, 3)) {
    case 0:
        readConfiguration(data.ConsumeRemainingBytesAsString());
        break;
    case 1:
        readProfile(data.ConsumeRemainingBytesAsString());
        break;
    case 2:
        scramble(data.ConsumeRemainingBytesAsString());
        break;
    default:
        set(data.ConsumeRandomLengthString(20), data.ConsumeRemainingBytesAsString());
    }
}

} // namespace quillmark::test
