#pragma once

#include "store/ResultList.h"

#include <QMimeData>

#include <optional>
#include <string>

namespace quillmark {

/// The start path ("\" form) that a drag of one local page stands for; nothing for anything else.
/// What a page is, its extension tells: `pageExtensions` are in upper case.
std::optional<std::string> droppedPage(const QMimeData& data, const ResultList& pageExtensions);

} // namespace quillmark
