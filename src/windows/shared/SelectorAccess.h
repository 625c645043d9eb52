#pragma once

namespace quillmark {

/// Makes every QComboBox tell assistive tools its label and its entry ("Display: Invalid
/// References"). Qt tells them the entry alone, which does not say what the selector is for.
void announceSelectorsWithLabels();

} // namespace quillmark
