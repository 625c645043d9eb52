#pragma once

#include "base/Failure.h"

#include <string>

namespace quillmark {

/// 1010: a web address that gave no answer; `why` is libcurl's own wording where there is one.
inline Failure noAnswerFromTheWeb(const std::string& why) {
    return {1010, "No answer from the web: " + why};
}

} // namespace quillmark
