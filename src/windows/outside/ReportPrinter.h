#pragma once

#include <QStringList>

namespace quillmark {

/// The system's default printer.
class ReportPrinter {
public:
    virtual ~ReportPrinter() = default;

    /// Whether there is one.
    virtual bool available() const = 0;
    /// Prints each text as one line, and ends the document. Throws a Failure when the printer does
    /// not take it.
    virtual void print(const QStringList& lines) = 0;
};

} // namespace quillmark
