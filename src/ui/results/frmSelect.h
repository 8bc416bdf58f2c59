#pragma once

#include <QDialog>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;

QT_BEGIN_NAMESPACE
namespace Ui {
class frmSelect;
}
QT_END_NAMESPACE

namespace veskora {

/// Which sections of the report a command takes. It opens with the choice last confirmed, at first
/// with all sections.
class frmSelect : public QDialog
{
    Q_OBJECT
public:
    /// @param caption  names the command
    frmSelect(const QString &caption, QWidget *parent);
    ~frmSelect() override; // in the .cpp, where Ui::frmSelect is complete

    /// The text of the ticked sections on OK, which also keeps the choice; none on Cancel.
    const std::optional<std::string> &answer() const { return answer_; }

    void accept() override;

private:
    const std::unique_ptr<Ui::frmSelect> ui_;
    std::vector<QCheckBox *> checks_; ///< of `reportSections`
    std::optional<std::string> answer_;
};

} // namespace veskora
