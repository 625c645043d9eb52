#pragma once

#include <QStringList>
#include <QTextBrowser>

namespace quillmark {

/// Shows the pages of the online help in the colours of the palette, and marks words in them.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT
public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    /// Shows a text that is no page of the help.
    void showText(const QString& html);
    /// Marks these words, whatever their case, in every page from now on.
    void markWords(const QStringList& words);
    /// Marks them in the page that is on show.
    void markPage();

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;

private:
    QString text_; ///< On show while there is no page.
    QStringList words_;
};

} // namespace quillmark
