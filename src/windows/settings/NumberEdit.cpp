#include "windows/settings/NumberEdit.h"

#include "ui/profile/FieldNotes.h"
#include "windows/shared/Text.h"
#include "windows/shared/ThemedIcon.h"

namespace quillmark {

NumberEdit::NumberEdit(QWidget* parent)
    : QLineEdit(parent), mark_(addAction(themedIcon("warning"), TrailingPosition)) {
    mark_->setVisible(false);
    connect(this, &QLineEdit::textChanged, this, &NumberEdit::look);
}

void NumberEdit::look() {
    const std::string note = numberNote(typed(text()));
    mark_->setVisible(!note.empty());
    setAccessibleDescription(shown(note));
}

} // namespace quillmark
