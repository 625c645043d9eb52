#include "desktop/DesktopShell.h"

#include "base/UpperCase.h"
#include "platform/NativePath.h"
#include "ui/results/ItemActions.h"

#include <QByteArray>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>

namespace quillmark {

namespace {

constexpr std::array<std::string_view, 3> WebSchemes = {"HTTP:", "HTTPS:", "FTP:"};
/// What stays as it is in a web address, besides letters, digits, "-", ".", "_" and "~".
constexpr const char* AddressCharacters = ":/?#[]@!$&'()*+,;=";

/// Types of files that a desktop runs or installs, or that name a program to run.
constexpr std::array Programs = {"application/x-executable",
                                 "application/x-sharedlib",
                                 "application/x-desktop",
                                 "application/x-ms-dos-executable",
                                 "application/vnd.microsoft.portable-executable",
                                 "application/x-msi",
                                 "application/x-ms-shortcut",
                                 "application/x-mswinurl",
                                 "application/x-bat",
                                 "application/x-java-archive",
                                 "application/java-archive",
                                 "application/x-java-jnlp-file",
                                 "application/vnd.debian.binary-package",
                                 "application/x-rpm",
                                 "application/vnd.flatpak",
                                 "application/vnd.flatpak.ref",
                                 "application/vnd.snap"};
/// Types that are only shown, even if the file is marked executable.
constexpr std::array Documents = {"image/",         "audio/",   "video/",
                                  "text/html",      "text/css", "application/xhtml+xml",
                                  "application/pdf"};
/// JavaScript, and JSON with it: programs by the desktop's tables, but opened in an editor.
constexpr const char* Script = "application/ecmascript";

/// A text editor, and how it is told a line: the argument before the file begins with `line` and
/// ends with the number.
struct Editor {
    const char* program;
    const char* line;
};
constexpr std::array<Editor, 8> Editors = {{{"kate", "--line="},
                                            {"gedit", "+"},
                                            {"xed", "+"},
                                            {"pluma", "+"},
                                            {"mousepad", "--line="},
                                            {"geany", "--line="},
                                            {"gvim", "+"},
                                            {"emacs", "+"}}};

const Editor* installedEditor() {
    const auto* editor = std::find_if(Editors.begin(), Editors.end(), [](const Editor& known) {
        return !QStandardPaths::findExecutable(known.program).isEmpty();
    });
    return editor == Editors.end() ? nullptr : editor;
}

bool isProgram(const QMimeType& type) {
    return !type.inherits(Script) &&
           std::any_of(Programs.begin(), Programs.end(),
                       [&type](const char* name) { return type.inherits(name); });
}

bool isDocument(const QMimeType& type) {
    return std::any_of(Documents.begin(), Documents.end(),
                       [&type](const char* name) { return type.name().startsWith(name); });
}

bool mayRun(const QFileInfo& file) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file);
    return file.isFile() && (isProgram(type) || (file.isExecutable() && !isDocument(type)));
}

bool isWebAddress(std::string_view target) {
    return std::any_of(WebSchemes.begin(), WebSchemes.end(), [target](std::string_view scheme) {
        return upperAscii(target.substr(0, scheme.size())) == scheme;
    });
}

/// The bytes as a part of a URL, so that a name in any encoding leads back to its file.
QByteArray encoded(std::string_view bytes, const char* kept) {
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())).toPercentEncoding(kept);
}

QUrl webAddress(std::string_view target) {
    QByteArray address = encoded(target, AddressCharacters);
    // A page may write the address encoded already. TolerantMode takes care of any other "%".
    address.replace("%25", "%");
    return QUrl::fromEncoded(address, QUrl::TolerantMode);
}

std::filesystem::path existing(std::string_view target) {
    std::filesystem::path path = nativePath(target);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        throw fileNotFound(path.string());
    }
    return path;
}

QUrl fileAddress(std::string_view target) {
    return QUrl::fromEncoded("file://" + encoded(existing(target).string(), "/"));
}

} // namespace

void DesktopShell::open(std::string_view target) {
    const QUrl url = isWebAddress(target) ? webAddress(target) : fileAddress(target);
    if (!QDesktopServices::openUrl(url)) {
        throw Failure(1030, std::string("There is no program to open ").append(target));
    }
}

bool DesktopShell::startsProgram(std::string_view target) const {
    if (isWebAddress(target)) {
        return false;
    }
    // Some desktops judge a link by its name, others by what it leads to.
    const QFileInfo file(QFile::decodeName(nativePath(target).c_str()));
    return mayRun(file) || mayRun(QFileInfo(file.canonicalFilePath()));
}

bool DesktopShell::hasEditor() const {
    return installedEditor() != nullptr;
}

void DesktopShell::edit(std::string_view file, std::uint32_t line) {
    const std::string path = existing(file).string();
    const Editor* editor = installedEditor();
    if (editor == nullptr ||
        !QProcess::startDetached(editor->program, {editor->line + QString::number(line),
                                                   QFile::decodeName(path.c_str())})) {
        throw Failure(1030, "There is no program to edit " + path);
    }
}

} // namespace quillmark
