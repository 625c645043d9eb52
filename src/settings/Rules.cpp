#include "settings/Rules.h"

namespace quillmark {

std::string_view nameOf(Rules rules) {
    return rules == Rules::Web ? "web" : "classic";
}

std::optional<Rules> rulesNamed(std::string_view name) {
    for (const Rules rules : {Rules::Classic, Rules::Web}) {
        if (name == nameOf(rules)) {
            return rules;
        }
    }
    return std::nullopt;
}

} // namespace quillmark
