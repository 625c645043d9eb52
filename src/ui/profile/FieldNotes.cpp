#include "ui/profile/FieldNotes.h"

#include "base/Failure.h"
#include "base/Numbers.h"

namespace quillmark {

namespace {

bool isWholeNumber(std::string_view text) {
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

SitePlace sitePlace(std::string_view startPath) {
    if (startPath.empty()) {
        return SitePlace::Nowhere;
    }
    return startPath.find('\\') == std::string_view::npos ? SitePlace::WebHost
                                                          : SitePlace::ThisComputer;
}

std::string placeNote(const ProfileFields& fields) {
    switch (sitePlace(fields.startPath)) {
    case SitePlace::Nowhere:
        return "Enter the page to start from, or press Browse.";
    case SitePlace::ThisComputer:
        return "A site on this computer";
    default:
        return fields.hostName.empty() ? "A site on a web host: enter its name under Host IP."
                                       : "A site on a web host";
    }
}

std::string numberNote(std::string_view text) {
    const std::string quoted = '"' + std::string(text) + '"';
    try {
        const std::int16_t number = toInt16(leadingNumber(text));
        return isWholeNumber(text)
                   ? ""
                   : quoted + " is no whole number and is saved as " + std::to_string(number);
    } catch (const Failure&) {
        return quoted + " cannot be saved: a number lies between -32768 and 32767";
    }
}

} // namespace quillmark
