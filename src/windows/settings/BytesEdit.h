#pragma once

#include <QLineEdit>

#include <string>
#include <string_view>

namespace quillmark {

/// A text box for bytes that need not be UTF-8. Until somebody changes its text, it gives back
/// exactly the bytes that it was given.
class BytesEdit {
public:
    explicit BytesEdit(QLineEdit* edit) : edit_(edit) {}

    /// Shows the bytes as text, from its beginning.
    void show(std::string_view bytes);
    /// The bytes in the box. What was typed is UTF-8, without the line ends of a pasted text.
    std::string bytes() const;
    QLineEdit* edit() const { return edit_; }

private:
    QLineEdit* edit_;
    QString shownText_;
    std::string bytes_;
};

} // namespace quillmark
