#pragma once
/// @file
/// The window of the steps of the analysis.

#include "Moment.h"
#include "StepsText.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QLineEdit;

QT_BEGIN_NAMESPACE
namespace Ui {
class frmSteps;
}
QT_END_NAMESPACE

namespace veskora {

struct PrintJob;

/// Stays over the main window, which goes on working. What it shows is of the moment when it was
/// last refreshed; where model or results have become others since, it says so.
class frmSteps : public QWidget
{
    Q_OBJECT
public:
    explicit frmSteps(QWidget *parent);
    ~frmSteps() override; // in the .cpp, where Ui::frmSteps is complete

    /// Shows the steps of the model as it stands, of the rows that are asked for. A list that is
    /// none is refused, and what was shown stays.
    void refresh();
    /// The same without a refusal: another model begins with empty lists, and what is typed by half
    /// leaves what was shown.
    void showAgain();

signals:
    void refreshWanted();
    void helpWanted();

private:
    void setCaptions();
    void connectParts();
    void connectKeys();
    void lookAtModel();
    struct Place;
    Place place() const;
    void goBackTo(const Place &place);

    void showSteps(const steps::Choice &choice);
    void layOut();
    void zoom(int steps);
    void showChoice(const steps::Choice &shown);
    void fillContents();
    void goTo(int section);
    void markSection();
    int sectionOf(const std::string &id) const;
    int sectionAt(int position) const;
    void mark(int section);
    bool findFrom(const QTextCursor &start, QTextDocument::FindFlags direction);
    void find(QTextDocument::FindFlags direction);
    void copy();
    void saveHtml();
    PrintJob printJob() const;

    /// Of one moment.
    struct Shown
    {
        Moment moment;
        DrawnSteps steps;
        std::string html;
        StepsText text;
    };

    const std::unique_ptr<Ui::frmSteps> ui_;
    std::unique_ptr<Shown> shown_; ///< none before `refresh`
    int zoom_ = 0;                 ///< steps that the letters are larger than usual
    bool isGoing_ = false;         ///< to a section that was picked
};

} // namespace veskora
