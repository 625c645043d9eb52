#include "windows/settings/StartPathNote.h"

#include "base/Paths.h"
#include "ui/profile/FieldNotes.h"
#include "windows/shared/Text.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QUrl>

namespace quillmark {

namespace {

/// The start path of the page that a user means by a path or file address of this computer; a
/// folder means its index page. Empty if there is no such page.
std::string pageHere(const std::string& typedPath) {
    const QUrl address(shown(typedPath));
    const QString path = address.isLocalFile() ? address.toLocalFile() : shown(typedPath);
    if (!path.startsWith('/')) {
        return {};
    }
    for (const char* page : {"", "/index.html", "/index.htm"}) {
        const QFileInfo file(path + page);
        if (file.isFile()) {
            return ToBackSlashes(typed(QDir::cleanPath(file.filePath())));
        }
    }
    return {};
}

} // namespace

StartPathNote::StartPathNote(QWidget* parent)
    : QWidget(parent), lblPlace_(new QLabel(this)),
      cmdUseLocal_(new QPushButton("Use the page on this computer", this)) {
    lblPlace_->setObjectName("lblPlace");
    lblPlace_->setTextFormat(Qt::PlainText);
    cmdUseLocal_->setObjectName("cmdUseLocal");
    cmdUseLocal_->setToolTip("This page is on this computer, too: check the site there");
    QSizePolicy keepsRoom = cmdUseLocal_->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true); // The dialog must not jump while a path is typed.
    cmdUseLocal_->setSizePolicy(keepsRoom);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(lblPlace_, 1);
    row->addWidget(cmdUseLocal_);
    connect(cmdUseLocal_, &QPushButton::clicked, this, [this] { emit localPageTaken(localPage_); });
}

void StartPathNote::tellOf(const ProfileFields& fields) {
    lblPlace_->setText(shown(placeNote(fields)));
    const bool onHost = sitePlace(fields.startPath) == SitePlace::WebHost;
    localPage_ = onHost ? pageHere(fields.startPath) : std::string();
    cmdUseLocal_->setVisible(!localPage_.empty());
}

} // namespace quillmark
