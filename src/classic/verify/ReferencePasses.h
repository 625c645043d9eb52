#pragma once

#include "classic/resolve/FiledReferences.h"
#include "classic/verify/PhraseSearch.h"
#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "store/LineIndex.h"

#include <map>
#include <string>
#include <string_view>

namespace quillmark {

/// Whether a reached file is a page to be scanned: its upper-cased name holds a "." followed by one
/// of the extensions anywhere, so that archive.htmx and page.htm.bak are pages too.
bool IsHTMLFile(std::string_view name, const ResultList& extensions);

/// The passes over the references that a run has filed. Each ends early when the run is aborted.
class ReferencePasses {
public:
    /// `files` is the index of FileList.
    ReferencePasses(RunContext& context, ListLimit& limit, FiledReferences& references,
                    LineIndex& files)
        : context_(context), limit_(limit), references_(references), files_(files) {}

    /// Files every reference that the inventory does not hold as invalid; it stays a reference too.
    void checkReferences();
    /// Keeps only the last of each group of equal invalid references, then asks
    /// CheckInvalidReference.
    void checkDuplicateInvalidReferences();
    /// Keeps only the last of each group of equal ignored references.
    void checkDuplicateIgnoredReferences();
    /// Removes references to a topic of the page itself ("#top") from the ignored ones. Once
    /// started it runs to its end.
    void removeTopicReferences();
    /// The same for references that hold ".CGI" or ".cgi"; a mixed-case form stays.
    void removeCGIReferences();
    /// Fetches each ignored web reference; one that answers becomes a reference.
    void checkURLs();

    /// A last look at an invalid reference: whether it is valid after all.
    bool CheckInvalidReference(std::string_view reference);
    /// Whether a web address answers, and not with "404 File Not Found".
    bool CheckURL(std::string_view url);

private:
    void removeEarlierDuplicates(ListPair list);
    void recheckInvalidReferences();
    void addInvalidReference(int i);
    void acceptURL(int i);
    UrlRequest requestFor(std::string_view url);

    RunContext& context_;
    ListLimit& limit_;
    FiledReferences& references_;
    LineIndex& files_;
    std::map<std::string, PhraseSearch> bodies_; ///< The search in the body of each address.
};

} // namespace quillmark
