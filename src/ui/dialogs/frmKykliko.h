#pragma once

#include "ModelDialog.h"

#include <memory>
#include <utility>
#include <vector>

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
    /// What the six coordinate fields say.
    struct Arc
    {
        double x, y;   ///< the centre k
        double R;      ///< distance of point 1 from k
        double start;  ///< direction angle of point 1 from k, radians
        double theta;  ///< radians, up to 2 pi
        bool isCircle; ///< points 1 and 2 in one direction: the whole circle
    };
    Arc arc() const;
    /// Shows radius and angle as they come from the fields.
    void Ipologismos_Gonias();
    void showHelp(bool shown);
    /// The places of the new nodes; none where a Single cannot hold one.
    static std::optional<std::vector<std::pair<float, float>>> places(const Arc &arc, int segments);
    static void store(const std::vector<std::pair<float, float>> &places, bool isCircle, int group);

    const std::unique_ptr<Ui::frmKykliko> ui_;
    QString helpCaption_;
};

} // namespace veskora
