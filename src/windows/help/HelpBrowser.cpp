#include "windows/help/HelpBrowser.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextDocument>

namespace quillmark {

namespace {

/// The margin around a page.
constexpr qreal PageMargin = 20;
constexpr QRgb LightMark = 0xffe9a8;
constexpr QRgb DarkMark = 0x5c4a12;

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

/// The style of the pages here; the one for web browsers has colours of its own.
QString styleFor(const QPalette& palette) {
    const bool dark = isDark(palette);
    return QString("body { color: %1; }"
                   "h1 { color: %2; font-size: x-large; font-weight: 600; margin-bottom: 12px; }"
                   "h2 { color: %2; font-size: large; font-weight: 600; margin-top: 22px; }"
                   "p { margin-top: 8px; margin-bottom: 8px; line-height: 130%; }"
                   "li { margin-top: 4px; margin-bottom: 4px; line-height: 130%; }"
                   "a { color: %2; text-decoration: none; }"
                   "table { margin-top: 10px; margin-bottom: 10px; }"
                   "th { text-align: left; font-weight: 600; background-color: %3; }"
                   "td.item, th { border-bottom: 1px solid %4; }"
                   "td.note { background-color: %5; }"
                   "code, tt, pre { background-color: %3; }")
        .arg(palette.color(QPalette::Text).name(), palette.color(QPalette::Link).name(),
             dark ? "#2a2f35" : "#eef0f3", dark ? "#3c434b" : "#d5dae0",
             dark ? "#17312f" : "#e8f4f2");
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    document()->setDocumentMargin(PageMargin);
    document()->setDefaultStyleSheet(styleFor(palette()));
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::markPage);
}

void HelpBrowser::showText(const QString& html) {
    text_ = html;
    setHtml(html);
}

void HelpBrowser::markWords(const QStringList& words) {
    words_ = words;
    markPage();
}

void HelpBrowser::markPage() {
    QTextCharFormat mark;
    mark.setBackground(QColor(isDark(palette()) ? DarkMark : LightMark));
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString& word : words_) {
        for (QTextCursor at = document()->find(word); !at.isNull();
             at = document()->find(word, at)) {
            marks.push_back({at, mark});
        }
    }
    setExtraSelections(marks);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    // The pages' own sheet is for web browsers: its colours do not follow the palette.
    return type == QTextDocument::StyleSheetResource ? QVariant()
                                                     : QTextBrowser::loadResource(type, name);
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        // A new style holds for pages that are laid out anew; the reader keeps the place.
        const int place = verticalScrollBar()->value();
        document()->setDefaultStyleSheet(styleFor(palette()));
        source().isEmpty() ? setHtml(text_) : reload();
        verticalScrollBar()->setValue(place);
        markPage();
    }
}

} // namespace quillmark
