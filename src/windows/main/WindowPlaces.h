#pragma once

#include <QByteArray>
#include <QSettings>
#include <QWidget>

#include <filesystem>
#include <vector>

namespace quillmark {

/// Where the user left the windows: the file "Quillmark.window" beside the configuration. It may be
/// deleted at any time; a file that cannot be read or written costs nothing but the places.
class WindowPlaces {
public:
    /// `programFolder` in the machine's own form.
    explicit WindowPlaces(const std::filesystem::path& programFolder);

    /// Puts a window back by its object name. One whose place is not known is made to fit its
    /// screen.
    void restore(QWidget& window) const;
    /// Remembers size and place of a window under its object name.
    void keep(const QWidget& window);

    /// Any other state of a window's parts, under a name of its own.
    QByteArray state(const QString& name) const;
    void keepState(const QString& name, const QByteArray& state);

    /// The column widths of the results, in pixels.
    std::vector<int> widths() const;
    void keepWidths(const std::vector<int>& widths);

private:
    QSettings file_;
};

} // namespace quillmark
