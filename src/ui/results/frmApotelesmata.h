#pragma once
/// @file
/// The results window: data and results of the model as grids and a tree, and their ways out.

#include "Anafora.h"

#include <QWidget>

#include <array>
#include <memory>
#include <string>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmApotelesmata;
}
QT_END_NAMESPACE

namespace veskora {

/// A window of its own, filled once when it is made: what the model becomes later does not reach
/// its grids and its tree. The report is made from the tables when it is asked for.
class frmApotelesmata : public QWidget
{
    Q_OBJECT
public:
    frmApotelesmata();
    ~frmApotelesmata() override; // in the .cpp, where Ui::frmApotelesmata is complete

    /// Whether it shows what a new one would.
    bool isUpToDate() const;

protected:
    void resizeEvent(QResizeEvent *event) override;

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

    /// Asks for the sections, lets @p act use them, and empties the report.
    void takeOut(const Phrase &caption, void (frmApotelesmata::*act)());
    void save();
    void copy();
    void print();
    void exportSections();

    const std::string model_; ///< the path of the model that is shown
    const std::unique_ptr<Ui::frmApotelesmata> ui_;
};

} // namespace veskora
