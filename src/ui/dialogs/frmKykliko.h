#pragma once

#include "ArcEdit.h"
#include "ModelDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmKykliko;
}
QT_END_NAMESPACE

namespace veskora {

/// Makes nodes and straight elements along an arc or a whole circle.
///
/// The arc runs counter-clockwise around the centre k, from point 1 to the direction of point 2.
class frmKykliko : public ModelDialog
{
    Q_OBJECT
public:
    explicit frmKykliko(QWidget *parent = nullptr);
    ~frmKykliko() override; // in the .cpp, where Ui::frmKykliko is complete

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply() override;
    void fillLists() final;
    /// What the six coordinate fields say.
    Arc arc() const;
    /// Shows radius and angle as they come from the fields.
    void Ipologismos_Gonias();
    void showHelp(bool shown);
    void refuseArc(ArcRefusal refusal, double elements);
    static void logNew(int nodes, int elements);

    const std::unique_ptr<Ui::frmKykliko> ui_;
    QString helpCaption_;
};

} // namespace veskora
