#pragma once

#include "report/Baseline.h"

#include <optional>
#include <string>

namespace quillmark {

/// The baseline in this file; nullopt for "". Throws CannotStart if it cannot be read.
std::optional<Baseline> loadBaseline(const std::string& file);

/// Writes what a check found to this file, in one step. Throws a Failure that names the file.
void saveBaseline(const std::string& file, const SiteResults& site);

} // namespace quillmark
