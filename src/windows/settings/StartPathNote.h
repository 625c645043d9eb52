#pragma once

#include "ui/profile/ProfileFields.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <string>

namespace quillmark {

/// The line below the start path. It says where the site lies. If the path as typed would be looked
/// for on a web host, but this computer has such a page, it offers that page.
class StartPathNote : public QWidget {
    Q_OBJECT
public:
    explicit StartPathNote(QWidget* parent = nullptr);

    /// Shows what the start path in these fields means.
    void tellOf(const ProfileFields& fields);

signals:
    /// The user accepted the page on this computer; `startPath` is in "\" form.
    void localPageTaken(const std::string& startPath);

private:
    QLabel* lblPlace_;
    QPushButton* cmdUseLocal_;
    std::string localPage_; ///< The start path that is offered.
};

} // namespace quillmark
