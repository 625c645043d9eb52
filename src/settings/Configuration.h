#pragma once

#include "store/FileCategory.h"
#include "store/ResultList.h"

#include <cstdint>
#include <string>

namespace quillmark {

/// The program-wide options. Flags hold 0 or 1 and are on when they equal 1.
struct Configuration {
    std::int16_t SAVE_DIRECTORY = 0;
    std::int16_t SAVE_FILE = 0;
    std::int16_t SAVE_MESSAGES = 0;
    std::int16_t SAVE_REFERENCES = 0;
    std::int16_t SAVE_UNUSED = 0;
    std::int16_t SAVE_INVALID = 0;
    std::int16_t SAVE_IGNORED = 0;
    std::int16_t SAVE_DUPLICATE = 0;
    std::int16_t TRACE_WINDOW = 0;
    std::int16_t SOUND = 0; ///< On when it is not 0.
    std::int16_t CHECK_VERSION = 0;
    std::int16_t LOG_FILE = 0;
    std::int16_t DEBUG = 0;
    std::int16_t IGNORE_VALUE = 0; ///< Shared with the profile: loading one overwrites it.
    std::int16_t IGNORECASE = 0;

    std::string fileMasksText; ///< The user-defined masks as one text, joined by ",".
    CategoryMasks masks;
    ResultList lstCheckCommand; ///< Attributes whose values are references.
    ResultList lstMakeAddition; ///< Prefixes of references that lead off the host.
    ResultList lstCheckHTML;    ///< Extensions of files that are scanned as pages.
};

} // namespace quillmark
