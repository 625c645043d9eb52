#include "windows/help/frmHelp.h"

#include "ui_frmHelp.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"
#include "windows/shared/ThemedIcon.h"

#include <QApplication>
#include <QShortcut>
#include <QWindow>

namespace quillmark {

namespace {

const QString FirstPage = "index.html"; // The contents of the manual.
constexpr int ContentsWidth = 230;
/// Above and below each line of the contents.
constexpr int LinePadding = 6;

} // namespace

frmHelp::frmHelp(const std::filesystem::path& helpFolder, Shell& shell, QWidget* parent)
    : QDialog(parent, Qt::Window), ui_(std::make_unique<Ui::frmHelp>()),
      folder_(shown(helpFolder.string())), shell_(shell), pages_(readHelpPages(helpFolder)) {
    ui_->setupUi(this);
    ui_->splitter->setStretchFactor(1, 1);
    ui_->splitter->setSizes({ContentsWidth, width() - ContentsWidth});
    prepareButtons();
    connectControls();
    connectKeys();
    fillContents();
    filterContents();
    ui_->HelpText->setFocus();
}

frmHelp::~frmHelp() = default;

void frmHelp::prepareButtons() {
    ui_->cmdBack->setIcon(themedIcon("back"));
    ui_->cmdForward->setIcon(themedIcon("forward"));
    ui_->cmdHome->setIcon(themedIcon("home"));
    ui_->txtSearch->addAction(themedIcon("find"), QLineEdit::LeadingPosition);
}

void frmHelp::connectControls() {
    connect(ui_->cmdBack, &QAbstractButton::clicked, ui_->HelpText, &QTextBrowser::backward);
    connect(ui_->cmdForward, &QAbstractButton::clicked, ui_->HelpText, &QTextBrowser::forward);
    connect(ui_->cmdHome, &QAbstractButton::clicked, this, [this] { showPage(FirstPage); });
    connect(ui_->HelpText, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
    connect(ui_->HelpText, &QTextBrowser::forwardAvailable, ui_->cmdForward, &QWidget::setEnabled);
    connect(ui_->HelpText, &QTextBrowser::anchorClicked, this, &frmHelp::openLink);
    connect(ui_->HelpText, &QTextBrowser::sourceChanged, this, &frmHelp::selectShown);
    connect(ui_->lstContents, &QListWidget::itemSelectionChanged, this, &frmHelp::openSelected);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::filterContents);
    connect(ui_->txtSearch, &QLineEdit::returnPressed, this, &frmHelp::openFirstFound);
}

void frmHelp::connectKeys() {
    const auto connectKey = [this](const QKeySequence& key, const auto& action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    connectKey(QKeySequence::Find, [this] {
        ui_->txtSearch->setFocus(Qt::ShortcutFocusReason);
        ui_->txtSearch->selectAll();
    });
    connectKey(QKeySequence::Back, [this] { ui_->HelpText->backward(); });
    connectKey(QKeySequence::Forward, [this] { ui_->HelpText->forward(); });
    connectKey(Qt::ALT | Qt::Key_Home, [this] { showPage(FirstPage); });
}

void frmHelp::fillContents() {
    const int height = ui_->lstContents->fontMetrics().height() + 2 * LinePadding;
    for (const HelpPage& page : pages_) {
        ui_->lstContents->addItem(page.title);
        ui_->lstContents->item(ui_->lstContents->count() - 1)->setSizeHint({0, height});
    }
    if (pages_.empty()) {
        apologize();
    }
}

void frmHelp::apologize() {
    ui_->HelpText->showText(
        "<h1>The help is not here</h1><p>Quillmark looked for its help pages in the folder</p>"
        "<p><code>" +
        folder_.toHtmlEscaped() +
        "</code></p><p>and found none. Quillmark itself works without them. Install it again to "
        "get them back.</p>");
    ui_->txtSearch->setEnabled(false);
    ui_->cmdHome->setEnabled(false);
}

void frmHelp::filterContents() {
    const QStringList words = searchWords(ui_->txtSearch->text());
    int found = 0;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const bool holds = holdsAll(pages_[i], words);
        ui_->lstContents->item(static_cast<int>(i))->setHidden(!holds);
        found += holds ? 1 : 0;
    }
    ui_->lblFound->setText(words.empty() ? QString("%1 pages").arg(pages_.size())
                                         : QString("%1 of %2 pages").arg(found).arg(pages_.size()));
    ui_->HelpText->markWords(words);
}

void frmHelp::openSelected() {
    const QList<QListWidgetItem*> selected = ui_->lstContents->selectedItems();
    if (!selected.empty()) {
        const int row = ui_->lstContents->row(selected.front());
        ui_->HelpText->setSource(address(pages_[static_cast<std::size_t>(row)].file));
    }
}

void frmHelp::openFirstFound() {
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (!ui_->lstContents->item(static_cast<int>(i))->isHidden()) {
            ui_->HelpText->setSource(address(pages_[i].file));
            return;
        }
    }
}

/// Lets the list follow links and the history, without opening the page a second time.
void frmHelp::selectShown(const QUrl& source) {
    const QSignalBlocker quiet(ui_->lstContents);
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (pages_[i].file == source.fileName()) {
            ui_->lstContents->setCurrentRow(static_cast<int>(i));
        }
    }
}

void frmHelp::openLink(const QUrl& link) {
    const QUrl target = ui_->HelpText->source().resolved(link);
    if (target.isLocalFile()) {
        ui_->HelpText->setSource(target);
        return;
    }
    guarded(this, [&] { shell_.open(target.toString(QUrl::FullyEncoded).toStdString()); });
}

void frmHelp::showPage(const QString& page) {
    if (!pages_.empty()) {
        ui_->HelpText->setSource(address(page));
    }
    bringToFront();
}

void frmHelp::bringToFront() {
    winId(); // Makes the native window, without which there is no windowHandle().
    QWidget* asking = QApplication::activeModalWidget();
    if (asking != nullptr && asking->windowHandle() != windowHandle()->transientParent()) {
        // While a modal window is open, only windows that belong to it can be used: the help joins
        // it, so that F1 helps there, too.
        hide();
        windowHandle()->setTransientParent(asking->windowHandle());
    }
    show();
    raise();
    activateWindow();
}

QUrl frmHelp::address(const QString& page) const {
    return QUrl::fromLocalFile(folder_ + '/' + page);
}

} // namespace quillmark
