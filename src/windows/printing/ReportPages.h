#pragma once

#include "base/Failure.h"

#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QStringList>

namespace quillmark {

/// 482: the printer, or the file in its place, does not take what is printed.
Failure printerError();

/// Paints lines of text on the pages of a printer, within its margins, in a fixed-pitch font of 9
/// points. Tabs reach to the next multiple of 8 columns. A line that is too wide is broken at the
/// first character that does not fit; empty lines stay.
class ReportPages {
public:
    /// Begins a document, which ends with this object. Throws printerError() if the device does not
    /// begin it.
    explicit ReportPages(QPagedPaintDevice& device);

    /// Throws printerError() if the device gives no further page.
    void print(const QStringList& lines);

private:
    void printLine(const QString& line);
    void makeRoom(qreal height);

    QPagedPaintDevice& device_;
    QPainter painter_;
    QFont font_;
    qreal used_ = 0; ///< Of the height of this page, in the units of the device.
};

/// The text with each tab replaced by as many blanks as lead to the next multiple of 8 columns.
QString withoutTabs(const QString& text);

} // namespace quillmark
