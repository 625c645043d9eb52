#include "windows/help/HelpPages.h"

#include <QFile>
#include <QTextDocumentFragment>

#include <algorithm>
#include <optional>

namespace quillmark {

namespace {

std::optional<QString> contentOf(const std::filesystem::path& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return QString::fromUtf8(file.readAll());
}

} // namespace

std::vector<HelpPage> readHelpPages(const std::filesystem::path& helpFolder) {
    std::vector<HelpPage> pages;
    const QStringList contents =
        contentOf(helpFolder / "contents").value_or(QString()).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : contents) {
        const QString file = line.section(' ', 0, 0);
        if (const auto html = contentOf(helpFolder / file.toStdString())) {
            pages.push_back(
                {file, line.section(' ', 1), QTextDocumentFragment::fromHtml(*html).toPlainText()});
        }
    }
    return pages;
}

QStringList searchWords(const QString& typed) {
    return typed.simplified().split(' ', Qt::SkipEmptyParts);
}

bool holdsAll(const HelpPage& page, const QStringList& words) {
    return std::all_of(words.begin(), words.end(), [&page](const QString& word) {
        return page.title.contains(word, Qt::CaseInsensitive) ||
               page.text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace quillmark
