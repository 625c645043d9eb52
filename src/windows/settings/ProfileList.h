#pragma once

#include <QComboBox>

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The editable list of profile names. What is typed is completed to the first name that begins
/// with it, the added tail selected, unless the change comes from a key that deletes.
class ProfileList : public QComboBox {
    Q_OBJECT
public:
    explicit ProfileList(QWidget* parent = nullptr);

    /// Shows these names and empties the text.
    void setNames(const std::vector<std::string>& names);
    /// Shows a name, without completion and without a signal.
    void setName(std::string_view name);
    /// The name in the text; for a listed name, the bytes that the list was given.
    std::string name() const;
    /// Whether the list has the name in the text.
    bool isListed() const;

signals:
    /// The list got the focus.
    void entered();
    /// The user changed the text, and it has been completed. Not sent after a deleting key.
    void nameTyped();
    /// The user chose a name from the list.
    void nameChosen();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void changeText(const QString& text);
    void complete(const QString& text);
    void selectEntryOfText();
    void markDeletion(int key);
    void enter(Qt::FocusReason reason);

    bool skipCompletion_ =
        false;            ///< Set by a deleting key, used up by the next change of the text.
    bool edited_ = false; ///< The change of the text under way is the user's editing.
};

} // namespace quillmark
