#pragma once

#include <QHelpEngine>
#include <QHelpSearchEngine>
#include <QTextDocument>
#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class HelpViewer;
}
QT_END_NAMESPACE

namespace veskora {

/// The window of the help: contents, index and search on the left, the page on the right.
///
/// It has no parent, and a dialog that blocks all other windows does not block this one.
class HelpViewer : public QWidget
{
    Q_OBJECT
public:
    /// @param collection  a help collection whose folder takes the search index; empty for none
    explicit HelpViewer(const QString &collection);
    ~HelpViewer() override; // in the .cpp, where Ui::HelpViewer is complete

    /// Whether the collection was there and has the pages of the help.
    bool isUsable() const { return usable_; }

    void bringUp();      ///< to the front, the focus in it
    void showContents(); ///< with the first page
    void showIndex();
    void showSearch();
    /// @return whether there is such a topic
    bool showTopic(const QString &id);

signals:
    /// A link to an example was followed.
    /// @param name  of the file, in the folder of the examples
    void exampleWanted(const QString &name);

protected:
    bool event(QEvent *event) override;

private:
    void setCaptions();
    void showWholeTitles();
    void showPage(const QUrl &page);
    void showTab(int tab); ///< and puts the focus into it
    void focusTab();
    void search();
    void showResults();
    void openResult();
    void findInPage(QTextDocument::FindFlags direction);
    void pageChanged(QUrl page);
    QStringList searchedWords() const;

    const std::unique_ptr<Ui::HelpViewer> ui_;
    QHelpEngine engine_;
    QStringList lastSearch_; ///< what the results were found by
    bool usable_ = false;
    bool indexed_ = false;
    bool wanted_ = false; ///< a search waits for the index
};

} // namespace veskora
