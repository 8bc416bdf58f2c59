#pragma once

#include "AlongElement.h"

#include <QWidget>

namespace veskora {

/// A number as the window shows it: six digits, the region's decimal separator.
QString shortNumber(double value);

/// N, Q, M and the deflection over the length of an element, one under the other, in the colours
/// and on the sides that the view options give the diagrams. A cursor follows the mouse and the
/// arrow keys, with Ctrl from one special place to the next.
class ElementCurves : public QWidget
{
    Q_OBJECT
public:
    explicit ElementCurves(QWidget *parent);

    /// @param stations  of @p along, whose extremes and ends are labelled; none to show nothing
    void present(const std::optional<AlongElement> &along, std::vector<Station> stations);
    /// @p x lies on the element. No signal.
    void setPlace(double x);

signals:
    void placeMoved(double x);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override { mouseMoveEvent(event); }
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Curve;
    struct Panel;
    std::vector<Curve> curves() const;
    Panel panelOf(const Curve &curve, const QRectF &frame) const;
    QPointF at(const Panel &panel, double x, double value) const;
    void paint(QPainter &painter, const Panel &panel) const;
    void paintCursor(QPainter &painter, const std::vector<Panel> &panels) const;
    void label(QPainter &painter, const Panel &panel) const;
    double xOf(double place) const;
    void moveTo(double place);
    double nextStation(bool isForward) const;

    std::optional<AlongElement> along_;
    std::vector<Station> stations_;
    double place_ = 0;
    int left_ = 0; ///< where the element begins, behind the names; logical pixels
};

} // namespace veskora
