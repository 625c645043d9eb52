#include "classic/verify/ReferencePasses.h"

#include "base/UpperCase.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace quillmark {

namespace {

bool isWebReference(std::string_view reference) {
    return upperAscii(reference).find("HTTP:") != std::string::npos;
}

} // namespace

bool IsHTMLFile(std::string_view name, const ResultList& extensions) {
    const std::string upper = upperCase(name);
    for (std::size_t dot = upper.find('.'); dot != std::string::npos;
         dot = upper.find('.', dot + 1)) {
        const std::string_view behind = std::string_view(upper).substr(dot + 1);
        for (int i = 0; i < extensions.Count(); ++i) {
            if (behind.starts_with(extensions.Line(i))) {
                return true;
            }
        }
    }
    return false;
}

void ReferencePasses::checkReferences() {
    const ResultList& references = references_.lines();
    for (int i = 0; i < references.Count() && !context_.state.abort; ++i) {
        context_.step(i, references.Count());
        // Stop may have been pressed during the step.
        if (!context_.state.abort && !files_.contains(references.Line(i))) {
            addInvalidReference(i);
        }
    }
}

void ReferencePasses::addInvalidReference(int i) {
    const std::string_view reference = references_.lines().Line(i);
    ListPair invalid(context_.lists.InvalidReferences, context_.lists.InvalidReferencesFrom);
    invalid.AppendFrom(references_.pair(), i);
    context_.outside.messages.post("Added Invalid Reference(2) ", reference);
    limit_.apply(invalid.lines(), "Invalid References List");
    limit_.apply(invalid.from(), "Invalid References From List");
}

void ReferencePasses::checkDuplicateInvalidReferences() {
    removeEarlierDuplicates(
        ListPair(context_.lists.InvalidReferences, context_.lists.InvalidReferencesFrom));
    recheckInvalidReferences();
}

void ReferencePasses::checkDuplicateIgnoredReferences() {
    removeEarlierDuplicates(
        ListPair(context_.lists.IgnoredReferences, context_.lists.IgnoredReferencesFrom));
}

void ReferencePasses::removeEarlierDuplicates(ListPair list) {
    const ResultList& lines = list.lines();
    // Counted beforehand: comparing each line with all others would take too long for long lists.
    std::unordered_map<std::string_view, int> occurrences;
    for (int i = 0; i < lines.Count(); ++i) {
        ++occurrences[lines.Line(i)];
    }
    for (int i = 0; i < lines.Count() && !context_.state.abort;) {
        context_.step(i, lines.Count());
        int& left = occurrences[lines.Line(i)];
        if (left == 1) {
            ++i;
            continue;
        }
        --left;
        list.Remove(i);
    }
}

void ReferencePasses::removeTopicReferences() {
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

void ReferencePasses::removeCGIReferences() {
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

void ReferencePasses::recheckInvalidReferences() {
    ListPair invalid(context_.lists.InvalidReferences, context_.lists.InvalidReferencesFrom);
    for (int i = 0; i < invalid.lines().Count() && !context_.state.abort;) {
        context_.step(i, invalid.lines().Count());
        const std::string_view reference = invalid.lines().Line(i);
        if (!CheckInvalidReference(reference)) {
            ++i;
            continue;
        }
        context_.outside.messages.post("Removed ", reference, " From Invalid References");
        invalid.Remove(i);
    }
}

// A real second test of invalid references would go here. None is known that is worth its time.
bool ReferencePasses::CheckInvalidReference(std::string_view reference) {
    context_.outside.messages.post("Checking Invalid Reference ", reference);
    return false;
}

void ReferencePasses::checkURLs() {
    const ResultList& ignored = context_.lists.IgnoredReferences;
    std::vector<UrlRequest> requests;
    for (int i = 0; i < ignored.Count(); ++i) {
        if (isWebReference(ignored.Line(i))) {
            requests.push_back(requestFor(ignored.Line(i)));
        }
    }
    // Many are fetched at a time, but judged in the order of the list.
    context_.outside.inet.expect(requests, {});
    for (int i = 0; i < ignored.Count() && !context_.state.abort;) {
        const std::string_view url = ignored.Line(i);
        if (isWebReference(url) && CheckURL(url)) {
            acceptURL(i);
        } else {
            ++i;
        }
    }
    // After Stop, some may still be under way.
    context_.outside.inet.expect({}, {});
}

UrlRequest ReferencePasses::requestFor(std::string_view url) {
    const auto place = bodies_.try_emplace(std::string(url), "404 File Not Found").first;
    return {place->first, &place->second};
}

void ReferencePasses::acceptURL(int i) {
    ListPair ignored(context_.lists.IgnoredReferences, context_.lists.IgnoredReferencesFrom);
    references_.appendFrom(ignored, i);
    limit_.apply(references_.lines(), "Reference List");
    limit_.apply(references_.from(), "Reference From List");
    ignored.Remove(i);
}

// Servers put that text into the body of a missing page. The status is not looked at: many sites
// answer their visitors with a page of their own and any status.
bool ReferencePasses::CheckURL(std::string_view url) {
    const UrlRequest request = requestFor(url);
    if (context_.outside.inet.OpenURL(request).failure != UrlFailure::None) {
        return false;
    }
    const bool passed = !bodies_.at(request.url).found();
    context_.outside.messages.post("Check For ", url, passed ? " Passed" : " Failed");
    return passed;
}

} // namespace quillmark
