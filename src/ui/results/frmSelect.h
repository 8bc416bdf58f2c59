#pragma once

#include "Anafora.h"

#include <QDialog>

#include <array>
#include <memory>

class QCheckBox;

QT_BEGIN_NAMESPACE
namespace Ui {
class frmSelect;
}
QT_END_NAMESPACE

namespace veskora {

/// Which sections of the report a command takes. OK fills `Anafora` and keeps the choice; Cancel
/// leaves `Anafora` empty and the choice as it was. It opens with the last choice, at first with
/// all sections.
class frmSelect : public QDialog
{
    Q_OBJECT
public:
    /// @param caption  names the command
    frmSelect(const QString &caption, QWidget *parent);
    ~frmSelect() override; // in the .cpp, where Ui::frmSelect is complete

    void accept() override;

private:
    struct Section
    {
        QCheckBox *check;
        ReportSection kind;
        bool *chosen;
    };
    std::array<Section, 4> sections() const;

    const std::unique_ptr<Ui::frmSelect> ui_;
};

/// The name of a section, for check boxes and sheets.
std::string sectionName(ReportSection section);

} // namespace veskora
