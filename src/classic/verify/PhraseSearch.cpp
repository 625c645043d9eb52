#include "classic/verify/PhraseSearch.h"

#include <algorithm>

namespace quillmark {

void PhraseSearch::begin() {
    tail_.clear();
    found_ = false;
}

bool PhraseSearch::take(std::string_view bytes) {
    // The phrase may lie across two pieces, so the end of the earlier one is kept.
    const std::size_t kept = phrase_.size() - 1;
    tail_ += bytes.substr(0, kept);
    found_ = found_ || tail_.find(phrase_) != std::string::npos ||
             bytes.find(phrase_) != std::string_view::npos;
    if (bytes.size() > kept) {
        tail_ = bytes.substr(bytes.size() - kept);
    } else {
        tail_.erase(0, tail_.size() - std::min(tail_.size(), kept));
    }
    return true; // The rest is wanted too: a body that turns out damaged gives no result at all.
}

} // namespace quillmark
