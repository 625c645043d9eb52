#include "settings/DefaultSettings.h"

#include <array>
#include <initializer_list>
#include <string_view>

namespace quillmark {

namespace {

constexpr std::array OnByDefault = {
    &Configuration::SAVE_DIRECTORY, &Configuration::SAVE_FILE,    &Configuration::SAVE_REFERENCES,
    &Configuration::SAVE_UNUSED,    &Configuration::SAVE_INVALID, &Configuration::SAVE_IGNORED,
    &Configuration::SAVE_DUPLICATE, &Configuration::IGNORE_VALUE, &Configuration::IGNORECASE};

constexpr std::array OffByDefault = {&Configuration::SAVE_MESSAGES, &Configuration::TRACE_WINDOW,
                                     &Configuration::SOUND,         &Configuration::CHECK_VERSION,
                                     &Configuration::LOG_FILE,      &Configuration::DEBUG};

void setFlags(Configuration& configuration) {
    for (const auto flag : OnByDefault) {
        configuration.*flag = 1;
    }
    for (const auto flag : OffByDefault) {
        configuration.*flag = 0;
    }
}

void appendItems(ResultList& list, std::initializer_list<std::string_view> items) {
    for (const std::string_view item : items) {
        list.Append(item);
    }
}

void appendListItems(Configuration& configuration) {
    CategoryMasks& masks = configuration.masks;
    appendItems(masks.lstCodeMask, {"HTML", "HTM", "MAP"});
    appendItems(masks.lstImageMask, {"JPEG", "JPG", "GIF"});
    appendItems(masks.lstMultimediaMask, {"WAV", "MID", "MIDI", "RAM", "MOV", "AVI"});
    appendItems(masks.lstDocumentMask, {"DOC", "TXT"});
    appendItems(masks.lstArchiveMask, {"ARJ", "RAR", "ZIP"});
    appendItems(configuration.lstCheckCommand, {"SRC", "HREF", "BACKGROUND", "VALUE"});
    appendItems(configuration.lstMakeAddition, {"HTTP:", "FTP:", "MAILTO:"});
    appendItems(configuration.lstCheckHTML, {"HTML", "HTM"});
}

} // namespace

void SetDefaultSettings(Settings& settings) {
    const Profile fresh = newProfile();
    settings.profile.START_COL = fresh.START_COL;
    settings.profile.END_COL = fresh.END_COL;
    settings.profile.HOST_PORT = fresh.HOST_PORT;
    setFlags(settings.configuration);
    settings.configuration.fileMasksText.clear();
    appendListItems(settings.configuration);
}

Profile newProfile() {
    Profile profile;
    profile.START_COL = 33;
    profile.END_COL = 43;
    profile.HOST_PORT = 21;
    return profile;
}

} // namespace quillmark
