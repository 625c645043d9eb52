#include "windows/settings/BytesEdit.h"

#include "windows/shared/Text.h"

namespace quillmark {

void BytesEdit::show(std::string_view bytes) {
    bytes_ = bytes;
    edit_->setText(shown(bytes));
    edit_->setCursorPosition(0);
    shownText_ = edit_->text();
}

std::string BytesEdit::bytes() const {
    const QString text = edit_->text();
    if (text == shownText_) {
        return bytes_;
    }
    // A line end would move every later line of the settings file.
    return typed(QString(text).remove('\r').remove('\n'));
}

} // namespace quillmark
