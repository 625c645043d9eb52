#include "run/ListLimit.h"

namespace quillmark {

void ListLimit::apply(const ResultList& list, std::string_view name) {
    if (list.Count() >= ResultList::Maximum) {
        ListMaximumReached(name);
        state_.abort = true;
    }
}

void ListLimit::AddWithLimit(ResultList& list, std::string_view name, std::string_view line) {
    list.Append(line);
    apply(list, name);
}

void ListLimit::ListMaximumReached(std::string_view name) {
    messages_.post("Exceeded List Maximum (", name, ") - List Truncated");
}

} // namespace quillmark
