#pragma once

#include "ModelDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmDiairesi;
}
QT_END_NAMESPACE

namespace veskora {

/// Cuts elements into equal straight segments, with new nodes between them.
class frmDiairesi : public ModelDialog
{
    Q_OBJECT
public:
    explicit frmDiairesi(QWidget *parent = nullptr);
    ~frmDiairesi() override; // in the .cpp, where Ui::frmDiairesi is complete

signals:
    /// Elements were divided; the window goes back to the model.
    void divided();

private:
    void apply() override;
    void fillLists() final;

    const std::unique_ptr<Ui::frmDiairesi> ui_;
};

} // namespace veskora
