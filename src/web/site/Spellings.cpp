#include "web/site/Spellings.h"

#include "base/FoldedName.h"

#include <string>

namespace quillmark::web {

std::optional<std::string_view> Spellings::find(std::string_view path) const {
    std::call_once(prepared_, [this] { prepare(); });
    const std::string folded = foldedName(path);
    auto number = numbers_.find(folded);
    if (!number && !folded.ends_with('/')) {
        number = numbers_.find(folded + '/');
    }
    return number ? std::optional(paths_[*number]) : std::nullopt;
}

void Spellings::prepare() const {
    const SiteResults& results = inventory_.results();
    for (std::uint32_t file = 0; file < results.files.size(); ++file) {
        add(inventory_.pathOf(file));
    }
    for (const std::string_view folder : results.folders) {
        add(folder.substr(results.top.size()));
    }
}

void Spellings::add(std::string_view path) const {
    const std::string folded = foldedName(path);
    if (!numbers_.find(folded)) {
        numbers_.insert(texts_.keep(folded), static_cast<std::uint32_t>(paths_.size()));
        paths_.push_back(path);
    }
}

} // namespace quillmark::web
