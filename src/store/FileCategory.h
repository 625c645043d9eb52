#pragma once

#include "store/ResultList.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// What the category selector offers, in its order.
enum class FileCategory { All, Code, Image, Multimedia, Document, Archive, UserDefined };

/// The selector's entries, index for index with FileCategory.
inline constexpr std::array<std::string_view, 7> FileCategoryNames = {
    "All Files", "Code Files", "Image Files", "Multimedia",
    "Documents", "Archives",   "User Defined"};

/// The extensions of each category: upper case, without the leading "." (user-defined ones may have
/// it).
struct CategoryMasks {
    ResultList lstFileMasks;
    ResultList lstCodeMask;
    ResultList lstImageMask;
    ResultList lstMultimediaMask;
    ResultList lstDocumentMask;
    ResultList lstArchiveMask;
};

/// Whether any line of the list equals the text exactly.
bool ListContains(const ResultList& list, std::string_view text);

/// Whether a file name, already in upper case, belongs to the selected category; false if none is
/// selected.
bool subCheckMask(std::string_view name, std::optional<FileCategory> selected,
                  const CategoryMasks& masks);

/// Rebuilds a list from a text of items separated by ",": each item in upper case, empty items left
/// out, blanks kept as they are.
void SplitFileMasks(std::string_view text, ResultList& masks);

/// The lines of the list joined by ",", without blanks.
std::string JoinFileMasks(const ResultList& masks);

} // namespace quillmark
