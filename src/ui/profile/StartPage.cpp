#include "ui/profile/StartPage.h"

#include "base/Failure.h"

namespace quillmark {

bool hasBareLineFeeds(LocalDisk& disk, std::string_view page) {
    bool found = false;
    char before = '\0';
    try {
        disk.read(page, [&](std::string_view block) {
            for (const char character : block) {
                found = found || (character == '\n' && before != '\r');
                before = character;
            }
            return !found;
        });
    } catch (const Failure&) {
        return false;
    }
    return found;
}

} // namespace quillmark
