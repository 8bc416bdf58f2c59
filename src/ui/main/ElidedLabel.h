#pragma once

#include <QLabel>

namespace veskora {

/// A label that takes the room there is: a longer text ends in an ellipsis and stands whole in the
/// tool tip.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    bool isCut() const;
};

} // namespace veskora
