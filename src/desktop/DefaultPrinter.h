#pragma once

#include "windows/outside/Desktop.h"

namespace quillmark {

/// The printer that the desktop prints on unless it is told otherwise.
class DefaultPrinter : public ReportPrinter {
public:
    bool available() const override;
    void print(const QStringList& lines) override;
};

} // namespace quillmark
