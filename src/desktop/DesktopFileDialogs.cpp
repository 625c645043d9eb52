#include "desktop/DesktopFileDialogs.h"

#include "windows/shared/MessageBoxes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace quillmark {

namespace {

QString nameOf(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

/// The filter in Qt's form: the text to show, then the patterns to match. On this machine names are
/// told apart by letter case, and a name without a "." is a file like any other.
QString matching(const QString& filter) {
    const qsizetype begin = filter.indexOf('(') + 1;
    QString patterns = filter.mid(begin, filter.lastIndexOf(')') - begin);
    patterns = patterns == "*.*" ? "*" : patterns + " " + patterns.toUpper();
    return filter + " (" + patterns + ")";
}

void setFilters(QFileDialog& dialog, const QStringList& filters) {
    QStringList names;
    for (const QString& filter : filters) {
        names += matching(filter);
    }
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(names);
}

bool mayReplace(QWidget* owner, const QString& file) {
    return ask(owner, file + " already exists.\nDo you want to replace it?",
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

/// Not every home has a folder for documents.
QString usualFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo::exists(documents) ? documents : QDir::homePath();
}

} // namespace

std::optional<std::filesystem::path> DesktopFileDialogs::saveFile(QWidget* owner,
                                                                  const SaveQuestion& question) {
    QFileDialog dialog(owner, question.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // mayReplace() asks instead: some desktops ask about the name before the extension is added.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(question.extension);
    setFilters(dialog, question.filters);
    beginIn(dialog, question.proposed.parent_path());
    dialog.selectFile(nameOf(question.proposed.filename()));
    auto chosen = asked(dialog);
    // A No leads back to the dialog, where another name can be chosen.
    while (chosen && QFileInfo::exists(nameOf(*chosen)) && !mayReplace(owner, nameOf(*chosen))) {
        chosen = asked(dialog);
    }
    return chosen;
}

std::optional<std::filesystem::path> DesktopFileDialogs::openPage(QWidget* owner) {
    QFileDialog dialog(owner, "Select Start File");
    dialog.setFileMode(QFileDialog::ExistingFile);
    setFilters(dialog, {"Web Pages (*.html *.htm)", "All Files (*.*)"});
    beginIn(dialog, {});
    return asked(dialog);
}

std::optional<std::filesystem::path> DesktopFileDialogs::openKeyFile(QWidget* owner) {
    QFileDialog dialog(owner, "Select Key File");
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setFilter(dialog.filter() | QDir::Hidden);
    // Where ssh keeps them; the folder of the other dialogs has none.
    dialog.setDirectory(QDir::home().filePath(".ssh"));
    return chosenIn(dialog);
}

void DesktopFileDialogs::beginIn(QFileDialog& dialog, const std::filesystem::path& folder) const {
    if (!folder.empty()) {
        dialog.setDirectory(nameOf(folder));
    } else if (!folder_.isEmpty()) {
        dialog.setDirectory(folder_);
    } else {
        dialog.setDirectory(usualFolder());
    }
}

std::optional<std::filesystem::path> DesktopFileDialogs::asked(QFileDialog& dialog) {
    auto file = chosenIn(dialog);
    if (file) {
        folder_ = nameOf(file->parent_path());
    }
    return file;
}

std::optional<std::filesystem::path> DesktopFileDialogs::chosenIn(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

} // namespace quillmark
