#pragma once

namespace quillmark {

/// From now on assistive tools are told of every QComboBox by its label and its entry ("Display:
/// Invalid References"). Qt tells them the entry alone, which says nothing of what it is for.
void announceSelectorsWithLabels();

} // namespace quillmark
