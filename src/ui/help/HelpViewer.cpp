#include "HelpViewer.h"

#include "Functions.h"
#include "HelpBrowser.h"
#include "Mnemonics.h"
#include "QtDesktop.h"
#include "Text.h"
#include "ui_HelpViewer.h"

#include <QGuiApplication>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QListWidgetItem>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>
#include <QWindow>

#include <array>

namespace veskora {

namespace {

constexpr const char *nameSpace = "veskora-ml";
constexpr const char *firstPage = "qthelp://veskora-ml/help/index.html";

} // namespace

HelpViewer::HelpViewer(const QString &collection)
    : ui_(std::make_unique<Ui::HelpViewer>()), engine_(collection)
{
    ui_->setupUi(this);
    ui_->Back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    ui_->Forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    setCaptions();
    if (collection.isEmpty())
        return;
    engine_.setReadOnly(true);
    QHelpSearchEngine *searching = engine_.searchEngine(); // there before the set-up: it makes
                                                           // its index then
    usable_ = engine_.setupData() && engine_.registeredDocumentations().contains(nameSpace)
              && !engine_.fileData(QUrl(firstPage)).isEmpty();
    if (!usable_)
        return;

    HelpBrowser *page = ui_->Page;
    page->setEngine(&engine_);
    QHelpContentWidget *contents = engine_.contentWidget();
    contents->setObjectName("ContentsTree");
    ui_->ContentsLayout->addWidget(contents);
    connect(engine_.contentModel(), &QHelpContentModel::contentsCreated, this, [this, contents] {
        contents->expandAll();
        showWholeTitles();
        pageChanged(ui_->Page->source()); // its place in the contents is known now
    });
    connect(contents, &QHelpContentWidget::linkActivated, page,
            [page](const QUrl &url) { page->setSource(url); });
    connect(contents, &QTreeView::clicked, contents, &QTreeView::activated);

    QHelpIndexWidget *index = engine_.indexWidget();
    index->setObjectName("IndexList");
    ui_->IndexLayout->addWidget(index);
    connect(ui_->Keyword, &QLineEdit::textChanged, index,
            [index](const QString &text) { index->filterIndices(text, text); });
    connect(ui_->Keyword, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, page,
            [page](const QHelpLink &link) { page->setSource(link.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, page,
            [page](const QList<QHelpLink> &links) { page->setSource(links.first().url); });
    connect(index, &QListView::clicked, index, &QListView::activated);

    connect(ui_->SearchText, &QLineEdit::returnPressed, this, &HelpViewer::search);
    connect(ui_->SearchButton, &QPushButton::clicked, this, &HelpViewer::search);
    connect(searching, &QHelpSearchEngine::searchingFinished, this, &HelpViewer::showResults);
    connect(searching, &QHelpSearchEngine::indexingFinished, this, [this] {
        indexed_ = true;
        if (wanted_)
            search();
    });
    connect(ui_->Results, &QListWidget::currentItemChanged, this, &HelpViewer::openResult);
    connect(ui_->Results, &QListWidget::itemClicked, this, &HelpViewer::openResult);

    connect(ui_->Back, &QToolButton::clicked, page, &QTextBrowser::backward);
    connect(ui_->Forward, &QToolButton::clicked, page, &QTextBrowser::forward);
    connect(page, &QTextBrowser::backwardAvailable, ui_->Back, &QWidget::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, ui_->Forward, &QWidget::setEnabled);
    connect(page, &QTextBrowser::sourceChanged, this, &HelpViewer::pageChanged);
    connect(page, &HelpBrowser::exampleWanted, this, &HelpViewer::exampleWanted);

    connect(ui_->Find, &QLineEdit::returnPressed, this, [this] { findInPage({}); });
    const auto key = [this](const QKeySequence &keys, auto command) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, command);
    };
    key(QKeySequence::Find, [this] {
        ui_->Find->setFocus();
        ui_->Find->selectAll();
    });
    key(QKeySequence::Back, [page] { page->backward(); });
    key(QKeySequence::Forward, [page] { page->forward(); });
    key(QKeySequence::FindNext, [this] { findInPage({}); });
    key(QKeySequence::FindPrevious, [this] { findInPage(QTextDocument::FindBackward); });
    key(Qt::Key_Escape, [this] { close(); });
    for (int tab = 0; tab < ui_->Tabs->count(); ++tab)
        key(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab)),
            [this, tab] { showTab(tab); });
    connect(ui_->Tabs, &QTabWidget::currentChanged, this, [this] {
        if (!ui_->Tabs->tabBar()->hasFocus()) // whose arrow keys go from tab to tab
            focusTab();
    });

    const QSize screenSize = QGuiApplication::primaryScreen()->availableSize();
    page->setFocus();
    resize(QSize(1060, 700).boundedTo(screenSize * 0.9));
    ui_->Splitter->setStretchFactor(1, 1); // a larger window is for the page
}

HelpViewer::~HelpViewer() = default;

void HelpViewer::setCaptions()
{
    const auto text = [](const std::string &translated) { return qtText(translated); };
    ui_->Tabs->setTabText(0, text(Metafrasi(2172, "Contents")));
    ui_->Tabs->setTabText(1, text(Metafrasi(2173, "Index")));
    ui_->Tabs->setTabText(2, text(Metafrasi(2174, "Search")));
    ui_->Back->setText(text(Metafrasi(2175, "Back")));
    ui_->Forward->setText(text(Metafrasi(2176, "Forward")));
    ui_->Find->setPlaceholderText(text(Metafrasi(2177, "Find in this page")));
    ui_->Keyword->setPlaceholderText(text(Metafrasi(2178, "Keyword")));
    ui_->SearchText->setPlaceholderText(text(Metafrasi(2179, "Words to search for")));
    ui_->SearchButton->setText(text(Metafrasi(2174, "Search")));
    for (QLineEdit *field : {ui_->Find, ui_->Keyword, ui_->SearchText})
        field->setAccessibleName(field->placeholderText());
    ui_->Results->setAccessibleName(ui_->Tabs->tabText(2));
    pageChanged({});
}

/// Gives the contents the width of their longest title, and the page the rest.
void HelpViewer::showWholeTitles()
{
    const QAbstractItemView *contents = engine_.contentWidget();
    const int beside = ui_->Tabs->width() - contents->viewport()->width();
    const int titles = contents->sizeHintForColumn(0) + beside;
    ui_->Splitter->setSizes({titles, ui_->Splitter->width() - titles});
}

void HelpViewer::bringUp()
{
    bringToFront(*this);
}

bool HelpViewer::event(QEvent *event)
{
    // Comes with every modal window that opens, and with this one's opening beneath one. What
    // belongs to the modal window is not blocked by it.
    if (event->type() == QEvent::WindowBlocked && windowHandle() != nullptr)
        if (QWindow *modal = QGuiApplication::modalWindow())
            windowHandle()->setTransientParent(modal);
    return QWidget::event(event);
}

void HelpViewer::showContents()
{
    showPage(QUrl(firstPage));
}

void HelpViewer::showPage(const QUrl &page)
{
    ui_->Tabs->setCurrentIndex(0);
    ui_->Page->setSource(page);
    ui_->Page->setFocus(); // for the keys that scroll it
}

void HelpViewer::showIndex()
{
    showTab(1);
}

void HelpViewer::showSearch()
{
    showTab(2);
}

void HelpViewer::showTab(int tab)
{
    if (ui_->Page->source().isEmpty())
        ui_->Page->setSource(QUrl(firstPage));
    ui_->Tabs->setCurrentIndex(tab);
    focusTab();
}

void HelpViewer::focusTab()
{
    const std::array<QWidget *, 3> first = {engine_.contentWidget(), ui_->Keyword, ui_->SearchText};
    first.at(static_cast<std::size_t>(ui_->Tabs->currentIndex()))->setFocus();
}

bool HelpViewer::showTopic(const QString &id)
{
    const QList<QHelpLink> links = engine_.documentsForIdentifier(id);
    if (id.isEmpty() || links.isEmpty())
        return false;
    showPage(links.first().url);
    return true;
}

void HelpViewer::pageChanged(QUrl page)
{
    const QString help = qtText(std::string(applicationTitle) + " - " + Metafrasi(33, "Help"));
    const QString title = ui_->Page->documentTitle();
    setWindowTitle(title.isEmpty() ? help : title + " - " + help);
    ui_->Page->setAccessibleName(windowTitle());
    if (!usable_)
        return;
    page.setFragment({});
    QHelpContentWidget *contents = engine_.contentWidget();
    if (const QModelIndex place = contents->indexOf(page); place.isValid()) {
        contents->setCurrentIndex(place);
        contents->scrollTo(place);
    }
}

QStringList HelpViewer::searchedWords() const
{
    static const QRegularExpression noWord("[^\\w]+",
                                           QRegularExpression::UseUnicodePropertiesOption);
    return ui_->SearchText->text().split(noWord, Qt::SkipEmptyParts);
}

void HelpViewer::search()
{
    QString query; // the beginnings of words, all of which a page must have
    for (const QString &word : searchedWords())
        query += word.toLower() + "* "; // in capitals, AND would be an operator
    if (query.isEmpty())
        return;
    lastSearch_ = searchedWords();
    ui_->Found->setText(qtText(Metafrasi(2180, "Searching...")));
    engine_.searchEngine()->search(query);
}

void HelpViewer::showResults()
{
    QHelpSearchEngine *searching = engine_.searchEngine();
    const QSignalBlocker quiet(ui_->Results);
    ui_->Results->clear();
    for (const QHelpSearchResult &hit :
         searching->searchResults(0, searching->searchResultCount())) {
        auto *item = new QListWidgetItem(hit.title(), ui_->Results);
        item->setData(Qt::UserRole, hit.url());
        item->setToolTip(hit.snippet());
    }
    const int found = ui_->Results->count();
    wanted_ = found == 0 && !indexed_;
    if (!wanted_)
        ui_->Found->setText(found == 0 ? qtText(Metafrasi(2181, "No page has all of these words."))
                                       : qtText(Metafrasi(2182, "Pages found:")) + " "
                                             + QString::number(found));
}

void HelpViewer::openResult()
{
    const QListWidgetItem *item = ui_->Results->currentItem();
    if (item == nullptr)
        return;
    ui_->Page->setSource(item->data(Qt::UserRole).toUrl());
    ui_->Page->mark(lastSearch_);
}

void HelpViewer::findInPage(QTextDocument::FindFlags direction)
{
    const QString text = ui_->Find->text();
    if (text.isEmpty() || ui_->Page->find(text, direction))
        return;
    // Around the end of the page.
    ui_->Page->moveCursor(direction == 0 ? QTextCursor::Start : QTextCursor::End);
    ui_->Page->find(text, direction);
}

} // namespace veskora

#include "moc_HelpViewer.cpp"
