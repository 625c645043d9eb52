#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quillmark {

/// Bytes as text for a person: read as UTF-8, or as Windows-1252 if they are not valid UTF-8. No
/// byte is lost silently: the five that Windows-1252 does not define show as U+FFFD.
QString shown(std::string_view bytes);

/// The same, but only the beginning and the end of a text of more than 4,000 bytes: nobody reads a
/// reference of megabytes, and laying it out would stop the window for seconds.
QString shownBriefly(std::string_view bytes);

/// What a person typed, as UTF-8.
std::string typed(const QString& text);

/// The text as a caption of one line without mnemonics: every "&" is doubled, and a tab, which
/// would begin the column of keys in a menu, becomes a blank.
QString plainCaption(const QString& text);

/// The text as a tool tip that shows it literally, up to 2,000 characters; empty for an empty text.
/// Every text from a page or a host goes through here: Qt renders a tip that looks like markup,
/// and would read the files that it names.
QString plainToolTip(const QString& text);

} // namespace quillmark
