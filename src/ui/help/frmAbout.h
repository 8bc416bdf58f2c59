#pragma once

#include <QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmAbout;
}
QT_END_NAMESPACE

namespace veskora {

/// The about box: name, version, language pack, and whether the welcome form comes again.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr);
    ~frmAbout() override; // in the .cpp, where Ui::frmAbout is complete

    void done(int result) override;

private:
    const std::unique_ptr<Ui::frmAbout> ui_;
};

} // namespace veskora
