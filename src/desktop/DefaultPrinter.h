#pragma once

#include "windows/outside/Desktop.h"

namespace quillmark {

/// The desktop's default printer.
class DefaultPrinter : public ReportPrinter {
public:
    bool available() const override;
    void print(const QStringList& lines) override;
};

} // namespace quillmark
