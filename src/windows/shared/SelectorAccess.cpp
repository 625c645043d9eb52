#include "windows/shared/SelectorAccess.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

#include <memory>

namespace quillmark {

namespace {

/// Like Qt's own description of a selector, which is not a public class. Its children are the list
/// of entries and, if the selector is editable, the text box.
class SelectorAccess : public QAccessibleWidget {
public:
    explicit SelectorAccess(QComboBox& selector)
        : QAccessibleWidget(&selector, QAccessible::ComboBox), selector_(selector) {}

    QString text(QAccessible::Text kind) const override {
        QString entry = selector_.currentText();
        if (kind == QAccessible::Value) {
            return entry;
        }
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && !text.isEmpty() ? text + ": " + entry : text;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const bool open = selector_.view()->isVisible();
        state.expandable = true;
        state.expanded = open;
        state.collapsed = !open;
        state.editable = selector_.isEditable();
        return state;
    }

    int childCount() const override { return selector_.isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        QWidget* part = nullptr;
        if (index == 0) {
            part = selector_.view();
        } else if (index == 1) {
            part = selector_.lineEdit();
        }
        return QAccessible::queryAccessibleInterface(part);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == selector_.lineEdit() ? 1 : 0;
    }
    QAccessibleInterface* focusChild() const override {
        return selector_.isEditable() && selector_.hasFocus() ? child(1) : nullptr;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& /*action*/) override {
        if (selector_.view()->isVisible()) {
            selector_.hidePopup();
        } else {
            selector_.showPopup();
        }
    }

private:
    QComboBox& selector_;
};

QAccessibleInterface* accessOf(const QString& className, QObject* object) {
    auto* const selector = qobject_cast<QComboBox*>(object);
    // Qt asks for each class that the object's class is derived from, and owns what it gets.
    return className == "QComboBox" && selector != nullptr
               ? std::make_unique<SelectorAccess>(*selector).release()
               : nullptr;
}

} // namespace

void announceSelectorsWithLabels() {
    QAccessible::installFactory(accessOf);
}

} // namespace quillmark
