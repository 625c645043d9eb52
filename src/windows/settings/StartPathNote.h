#pragma once

#include "ui/profile/ProfileFields.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <string>

namespace quillmark {

/// The line below the start path. It says where the site lies, and offers the page on this computer
/// where the path, as typed, would look for that page on a web host.
class StartPathNote : public QWidget {
    Q_OBJECT
public:
    explicit StartPathNote(QWidget* parent = nullptr);

    void tellOf(const ProfileFields& fields);

signals:
    /// The user takes the page on this computer; the start path is in "\" form.
    void localPageTaken(const std::string& startPath);

private:
    QLabel* lblPlace_;
    QPushButton* cmdUseLocal_;
    std::string localPage_; ///< The start path that is offered.
};

} // namespace quillmark
