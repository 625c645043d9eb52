#pragma once

#include "web/text/Source.h"

#include <string>
#include <string_view>

namespace quillmark::web {

/// Finds the label of the encoding that a file declares in its first bytes; "" for none.
using LabelFinder = std::string_view (*)(std::string_view bytes);

/// The file as UTF-8: after its byte order mark, else what it declares, else as UTF-8 if it is
/// valid, else as windows-1252. UTF-16 is known by its mark alone. `decoded` holds the text where
/// the bytes are not UTF-8 already.
Source decodeFile(std::string_view bytes, LabelFinder findLabel, std::string& decoded);

/// The encoding in the XML declaration that a file begins with.
std::string_view xmlEncoding(std::string_view bytes);

/// The encoding in the @charset rule that a style sheet begins with.
std::string_view cssCharset(std::string_view bytes);

} // namespace quillmark::web
