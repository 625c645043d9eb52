#include "windows/printing/ReportPages.h"

#include <QFontDatabase>
#include <QTextLayout>

namespace quillmark {

namespace {

constexpr qreal FontPoints = 9;
constexpr qsizetype TabColumns = 8;

QFont reportFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(FontPoints);
    return font;
}

/// Paths have no blanks to break at, and text from right to left must not turn a report around.
QTextOption anywhere() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    option.setTextDirection(Qt::LeftToRight);
    return option;
}

} // namespace

Failure printerError() {
    return {482, "Printer error"};
}

ReportPages::ReportPages(QPagedPaintDevice& device) : device_(device), font_(reportFont()) {
    if (!painter_.begin(&device)) {
        throw printerError();
    }
}

void ReportPages::print(const QStringList& lines) {
    for (const QString& line : lines) {
        printLine(withoutTabs(line));
    }
}

void ReportPages::printLine(const QString& line) {
    QTextLayout layout(line, font_, &device_);
    layout.setTextOption(anywhere());
    layout.beginLayout();
    for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
        part.setLineWidth(painter_.viewport().width());
        makeRoom(part.height());
        part.draw(&painter_, {0, used_});
        used_ += part.height();
    }
    layout.endLayout();
}

void ReportPages::makeRoom(qreal height) {
    if (used_ + height <= painter_.viewport().height()) {
        return;
    }
    if (!device_.newPage()) {
        throw printerError();
    }
    used_ = 0;
}

QString withoutTabs(const QString& text) {
    QString expanded;
    for (const QChar character : text) {
        if (character == '\t') {
            expanded.append(QString(TabColumns - expanded.size() % TabColumns, ' '));
        } else {
            expanded.append(character);
        }
    }
    return expanded;
}

} // namespace quillmark
