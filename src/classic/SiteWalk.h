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

    /// Sees whether the host hands out the start file at all.
    void testStartFile();
    void listStartDirectory();
    void listDirectories();
    void scanStartFile();
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
    int expectedDirectories_ = 0; ///< So many lines of the list were looked at for the host.
    int expectedPages_ = 0;
};

} // namespace quillmark
