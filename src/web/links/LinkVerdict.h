#pragma once

#include "findings/Finding.h"
#include "run/UrlAnswer.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillmark::web {

/// What an answer means for the references that ask for it.
struct LinkVerdict {
    std::optional<FindingKind> kind; ///< Nothing: they are sound.
    FindingLevel level = FindingLevel::Note;
    std::uint16_t status = 0; ///< The one that the verdict rests on.
    std::string movedTo;      ///< Where it has moved for good.
};

/// Judges an answer as a visitor would: what a browser shows is sound. What speaks of rights, of
/// haste or of trouble at the server says nothing of the page: that is a note.
LinkVerdict verdictOn(const UrlAnswer& answer);

} // namespace quillmark::web
