#include "classic/verify/IgnoredPasses.h"

namespace quillmark {

void IgnoredPasses::removeTopicReferences() {
    ListPair ignored(context_.lists.IgnoredReferences, context_.lists.IgnoredReferencesFrom);
    for (int i = 0; i < ignored.lines().Count();) {
        context_.step(i, ignored.lines().Count());
        const std::string_view line = ignored.lines().Line(i);
        if (!line.starts_with('#')) {
            ++i;
            continue;
        }
        context_.outside.messages.postDebug("Removed Topic Reference :", line);
        ignored.Remove(i);
    }
}

void IgnoredPasses::removeCGIReferences() {
    ListPair ignored(context_.lists.IgnoredReferences, context_.lists.IgnoredReferencesFrom);
    for (int i = 0; i < ignored.lines().Count();) {
        context_.step(i, ignored.lines().Count());
        const std::string_view line = ignored.lines().Line(i);
        if (line.find(".CGI") == std::string_view::npos &&
            line.find(".cgi") == std::string_view::npos) {
            ++i;
            continue;
        }
        ignored.Remove(i);
    }
}

} // namespace quillmark
