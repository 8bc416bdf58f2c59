#pragma once
/// @file
/// The results window: data and results of the model as grids and a tree, and their ways out.

#include "Anafora.h"
#include "ModelTree.h"
#include "ResultWarnings.h"

#include <QWidget>

#include <array>
#include <memory>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmApotelesmata;
}
QT_END_NAMESPACE

namespace veskora {

/// What a results window leaves to the next.
struct ResultsPlace
{
    int section = 0;
    OpenBranches open = {QString()};
};

/// A window of its own, filled once when it is made: what the model becomes later does not reach
/// its grids and its tree. The report is made from the tables when it is asked for.
class frmApotelesmata : public QWidget
{
    Q_OBJECT
public:
    /// @param place  where it opens, and where it leaves what was in sight; outlives it
    explicit frmApotelesmata(ResultsPlace &place);
    ~frmApotelesmata() override; // in the .cpp, where Ui::frmApotelesmata is complete

    /// Whether it shows what a new one would.
    bool isUpToDate() const;
    /// Tells what must be told of the results shown, over the tabs; anew after each change of the
    /// model.
    void showWarnings();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Page;
    using Pages = std::array<Page, reportSections.size()>;
    Pages pages() const;
    void setCaptions();
    void showCounts();
    void buildToolbar();
    void assignWindowMnemonics();
    void setLeastSize();
    void arrange();
    void showView();
    bool showsTables() const; ///< as they now are
    std::vector<ResultWarning> warnings() const;

    /// Asks for the sections, lets @p act use them, and empties the report.
    void takeOut(const Phrase &caption, void (frmApotelesmata::*act)());
    void save();
    void copy();
    void print();
    void exportSections();

    const std::string model_;   ///< the path of the model that is shown
    const ResultState results_; ///< of what is shown, when it was filled
    const int analyses_;        ///< `analysesFinished` then
    ResultsPlace &place_;
    const std::unique_ptr<Ui::frmApotelesmata> ui_;
};

} // namespace veskora
