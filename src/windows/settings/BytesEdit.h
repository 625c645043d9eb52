#pragma once

#include <QLineEdit>

#include <string>
#include <string_view>

namespace quillmark {

/// A text box over bytes that need not be UTF-8: until somebody changes its text, it gives back
/// the very bytes that it was given.
class BytesEdit {
public:
    explicit BytesEdit(QLineEdit* edit) : edit_(edit) {}

    void show(std::string_view bytes);
    /// What was typed is UTF-8, without the line ends that a pasted text may have brought along.
    std::string bytes() const;
    QLineEdit* edit() const { return edit_; }

private:
    QLineEdit* edit_;
    QString shownText_;
    std::string bytes_;
};

} // namespace quillmark
