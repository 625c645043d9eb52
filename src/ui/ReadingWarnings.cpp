#include "ui/ReadingWarnings.h"

#include "ui/Thousands.h"

namespace quillmark {

namespace {

std::string grouped(std::uint64_t number) {
    return groupedThousands(static_cast<double>(number), userThousandsSeparator());
}

std::string unreadText(const ReadingFigures& figures, int pages) {
    return std::to_string(figures.pagesCutShort) + " of " + std::to_string(pages) +
           (pages == 1 ? " page was" : " pages were") +
           " not read to the end: " + grouped(figures.bytesUnread) + " of " +
           grouped(figures.bytes) +
           " bytes were left out. A page whose lines end in bare line feeds is read up to its last "
           "empty line. Check this site with the web rules (--rules web), which read as browsers "
           "do.";
}

std::string secureAddressesText(const ReadingFigures& figures) {
    const bool one = figures.secureAddresses == 1;
    return std::to_string(figures.secureAddresses) +
           (one ? " reference that begins with \"https:\" was taken for a file."
                : " references that begin with \"https:\" were taken for files.") +
           " The web rules (--rules web) know such addresses; or add HTTPS: to MAKE_ADDITION to "
           "have them ignored.";
}

} // namespace

std::vector<std::string> readingWarnings(const ReadingFigures& figures, int pages) {
    std::vector<std::string> warnings;
    if (figures.pagesCutShort > 0) {
        warnings.push_back(unreadText(figures, pages));
    }
    if (figures.secureAddresses > 0) {
        warnings.push_back(secureAddressesText(figures));
    }
    return warnings;
}

} // namespace quillmark
