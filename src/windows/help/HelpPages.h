#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>
#include <vector>

namespace quillmark {

/// One page of the online help.
struct HelpPage {
    QString file;  ///< "profiles.html"
    QString title; ///< As the contents list shows it.
    QString text;  ///< What a reader sees of it, for the search.
};

/// Reads the pages of a help folder (in the machine's own form) in the order of its file
/// "contents", which has a line "file title" for each. Pages that cannot be read are left out; none
/// at all means that there is no help.
std::vector<HelpPage> readHelpPages(const std::filesystem::path& helpFolder);

/// The words of a search: what was typed, split at blanks.
QStringList searchWords(const QString& typed);

/// Whether each of the words is in the title or the text of the page, whatever its case.
bool holdsAll(const HelpPage& page, const QStringList& words);

} // namespace quillmark
