#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quillmark {

/// The text that a person reads in some bytes: UTF-8, or Windows-1252 where they are not valid
/// UTF-8. Never loses a byte silently: the five that Windows-1252 leaves free show as U+FFFD.
QString shown(std::string_view bytes);

/// What a person typed, as UTF-8.
std::string typed(const QString& text);

/// The text as a caption that must not be searched for mnemonics: every "&" doubled.
QString plainCaption(const QString& text);

} // namespace quillmark
