#pragma once

#include "classic/inventory/HostInventory.h"
#include "classic/resolve/FiledReferences.h"
#include "classic/scan/PageRetrieval.h"
#include "classic/scan/Scanner.h"
#include "run/ListLimit.h"
#include "run/RunContext.h"

#include <string_view>

namespace quillmark {

/// Walks the site: every directory below the start directory, then every page that the start file
/// leads to. Each step looks at the abort flag itself.
class SiteWalk {
public:
    SiteWalk(RunContext& context, ListLimit& limit, FiledReferences& references,
             HostInventory& inventory, PageRetrieval& retrieval, Scanner& scanner)
        : context_(context), limit_(limit), references_(references), inventory_(inventory),
          retrieval_(retrieval), scanner_(scanner) {}

    /// Tests whether the host hands out the start file at all; if not, the run aborts.
    void testStartFile();
    /// Lists the directory of the start file.
    void listStartDirectory();
    /// Lists every directory that was found, down to MAX_LEVELS, those found on the way too.
    void listDirectories();
    /// Files the start file as the first reference and scans it. The run aborts if the inventory
    /// does not hold it.
    void scanStartFile();
    /// Scans every page that a reference leads to, those found on the way too. A reference to a
    /// page that the inventory does not hold moves to the invalid ones.
    void scanReferencedPages();

private:
    void expectDirectories();
    void expectPages();
    bool withinDepth(std::string_view directory) const;
    bool isOtherPage(std::string_view reference) const;
    bool scanReferencedPage(int i);
    void moveToInvalid(int i);

    RunContext& context_;
    ListLimit& limit_;
    FiledReferences& references_;
    HostInventory& inventory_;
    PageRetrieval& retrieval_;
    Scanner& scanner_;
    int expectedDirectories_ = 0; ///< How many lines of DirectoryList the host was told of.
    int expectedPages_ = 0;       ///< The same of ReferenceList.
};

} // namespace quillmark
