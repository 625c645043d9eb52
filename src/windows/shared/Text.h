#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quillmark {

/// The text that a person reads in some bytes: UTF-8, or Windows-1252 where they are not valid
/// UTF-8. Never loses a byte silently: the five that Windows-1252 leaves free show as U+FFFD.
QString shown(std::string_view bytes);

/// The same, but of a text of more than 4,000 bytes only the beginning and the end: nobody reads a
/// reference of megabytes, and laying it out would stop the window for seconds.
QString shownBriefly(std::string_view bytes);

/// What a person typed, as UTF-8.
std::string typed(const QString& text);

/// The text as a caption of one line, which has no mnemonics: every "&" is doubled, and a tab,
/// which would begin a menu's column of keys, is a blank.
QString plainCaption(const QString& text);

/// The text as a tool tip that shows it as it stands, up to 2,000 characters of it; empty for an
/// empty text. Whatever a page or a host says goes through here: Qt takes a tip that looks like
/// mark-up for mark-up, and would read the files that it names.
QString plainToolTip(const QString& text);

} // namespace quillmark
