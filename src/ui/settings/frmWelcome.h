#pragma once

#include <QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmWelcome;
}
QT_END_NAMESPACE

namespace veskora {

/// The form that greets: what the program is for, and the choice of its language, which takes
/// effect when the form is closed by its button.
class frmWelcome : public QDialog
{
    Q_OBJECT
public:
    explicit frmWelcome(QWidget *parent = nullptr);
    ~frmWelcome() override; // in the .cpp, where Ui::frmWelcome is complete

    void done(int result) override;

private:
    void listLanguages();
    void activateLanguage();

    const std::unique_ptr<Ui::frmWelcome> ui_;
};

/// Shows the welcome form where it is due: as long as the user wants to see it, and once after the
/// program has become newer.
void showWelcomeWhenDue();

} // namespace veskora
