#include "desktop/DefaultPrinter.h"

#include "base/Version.h"
#include "windows/printing/ReportPages.h"
#include "windows/shared/Text.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

namespace quillmark {

namespace {

constexpr QMarginsF Millimeters(15, 15, 15, 15);

} // namespace

bool DefaultPrinter::available() const {
    return !QPrinterInfo::defaultPrinter().isNull();
}

void DefaultPrinter::print(const QStringList& lines) {
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer.setDocName(shown(ApplicationTitle));
    printer.setPageMargins(Millimeters, QPageLayout::Millimeter);
    ReportPages(printer).print(lines);
    if (printer.printerState() == QPrinter::Error) {
        throw printerError();
    }
}

} // namespace quillmark
