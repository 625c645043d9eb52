#include "windows/settings/ProfileList.h"

#include "ui/profile/NameCompletion.h"
#include "windows/shared/Text.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <utility>

namespace quillmark {

namespace {

constexpr Qt::MatchFlags SameText = Qt::MatchExactly | Qt::MatchCaseSensitive;

} // namespace

ProfileList::ProfileList(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    setDuplicatesEnabled(true); // Otherwise Enter would choose the entry and load its profile anew.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    installEventFilter(this);
    lineEdit()->installEventFilter(this);
    lineEdit()->setAccessibleName("Profile Name");
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { edited_ = true; });
    connect(this, &QComboBox::editTextChanged, this, &ProfileList::changeText);
    connect(this, &QComboBox::activated, this, &ProfileList::nameChosen);
}

void ProfileList::setNames(const std::vector<std::string>& names) {
    const QSignalBlocker quiet(this);
    clear();
    for (const std::string& name : names) {
        addItem(shown(name), QByteArray::fromStdString(name));
    }
    setName({});
}

void ProfileList::setName(std::string_view name) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(findData(QByteArray(name.data(), static_cast<qsizetype>(name.size()))));
    setEditText(shown(name));
}

std::string ProfileList::name() const {
    const bool listed = itemText(currentIndex()) == currentText();
    return listed ? currentData().toByteArray().toStdString() : typed(currentText());
}

bool ProfileList::isListed() const {
    return findText(currentText(), SameText) >= 0;
}

bool ProfileList::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        markDeletion(dynamic_cast<QKeyEvent*>(event)->key());
        return false;
    case QEvent::FocusIn:
        enter(dynamic_cast<QFocusEvent*>(event)->reason());
        return false;
    case QEvent::Wheel: // Scrolling past the list must not replace what was entered by a profile.
        event->ignore();
        return true;
    default:
        return QComboBox::eventFilter(watched, event);
    }
}

void ProfileList::changeText(const QString& text) {
    const bool chosen = !std::exchange(edited_, false) && text == itemText(currentIndex());
    if (chosen) {
        return;
    }
    const bool skip = std::exchange(skipCompletion_, false);
    if (!skip) {
        complete(text);
    }
    selectEntryOfText();
    if (!skip) {
        emit nameTyped();
    }
}

void ProfileList::complete(const QString& text) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i) {
        names.push_back(typed(itemText(i)));
    }
    if (const auto found = completion(names, typed(text))) {
        const QSignalBlocker quiet(this);
        setEditText(itemText(static_cast<int>(*found)));
        const auto begin = static_cast<int>(text.size());
        lineEdit()->setSelection(begin, static_cast<int>(currentText().size()) - begin);
    }
}

/// Makes the entry of the text the current one. Otherwise leaving the box would count as choosing
/// it.
void ProfileList::selectEntryOfText() {
    const int entry = findText(currentText(), SameText);
    if (entry >= 0 && itemText(currentIndex()) != currentText()) {
        const QSignalBlocker quiet(this);
        setCurrentIndex(entry);
    }
}

/// Notes a deleting key. The box handles the key itself and deletes the selection first: that is
/// the tail which completion added, and adding it again would make it impossible to delete.
void ProfileList::markDeletion(int key) {
    if (key == Qt::Key_Backspace || (key == Qt::Key_Delete && lineEdit()->hasSelectedText())) {
        skipCompletion_ = true;
    }
}

void ProfileList::enter(Qt::FocusReason reason) {
    emit entered();
    lineEdit()->selectAll();
    if (reason == Qt::MouseFocusReason) {
        // The mouse press comes after this: it sets the cursor and drops the selection.
        QMetaObject::invokeMethod(lineEdit(), "selectAll", Qt::QueuedConnection);
    }
}

} // namespace quillmark
