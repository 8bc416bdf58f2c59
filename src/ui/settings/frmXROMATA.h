#pragma once
/// @file
/// The colour picker.

#include <QDialog>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmXROMATA;
}
QT_END_NAMESPACE

namespace veskora {

/// Lets the user pick a colour.
/// @param colour  the colour word to start from; it may name a system colour
/// @return the colour word picked, @p colour itself where the user kept it; -1 when cancelled
double Epilogi_Xromatos(double colour, QWidget *parent);

/// Sixteen swatches, a palette, and the desktop's own colour dialog.
class frmXROMATA : public QDialog
{
    Q_OBJECT
public:
    frmXROMATA(double colour, QWidget *parent);
    ~frmXROMATA() override; // in the .cpp, where Ui::frmXROMATA is complete

    /// The colour on OK, none on Cancel and Esc, and what it was given when it is closed by its
    /// frame.
    std::optional<double> answer() const { return answer_; }

    void accept() override;
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void addSwatches();
    void take(double colour);
    void take(const QColor &colour);
    void askMore();

    const std::unique_ptr<Ui::frmXROMATA> ui_;
    std::optional<double> answer_;
    double current_;
};

} // namespace veskora
