#pragma once
/// @file
/// The colour picker.

#include <QDialog>

#include <memory>

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

/// Sixteen swatches, a palette, and the desktop's own colour dialog. It starts from
/// `Epilegmeno_Xroma` and leaves its answer there: the colour on OK, -1 on Cancel and Esc, and what
/// it was given when it is closed by its frame.
class frmXROMATA : public QDialog
{
    Q_OBJECT
public:
    explicit frmXROMATA(QWidget *parent = nullptr);
    ~frmXROMATA() override; // in the .cpp, where Ui::frmXROMATA is complete

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
    double current_ = 0;
};

} // namespace veskora
