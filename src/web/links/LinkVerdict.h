#pragma once

#include "findings/Finding.h"
#include "run/UrlAnswer.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillmark::web {

/// What a web server's answer means for the references to its address.
struct LinkVerdict {
    std::optional<FindingKind> kind; ///< Nothing if they are sound.
    FindingLevel level = FindingLevel::Note;
    std::uint16_t status = 0; ///< The HTTP status that decided; 0 without one.
    std::string movedTo;      ///< Where the page has moved for good; may be empty.
};

/// Judges an answer as a visitor would: what a browser shows is sound. An answer about rights, too
/// many requests or trouble at the server says nothing about the page: it gives a note.
LinkVerdict verdictOn(const UrlAnswer& answer);

} // namespace quillmark::web
