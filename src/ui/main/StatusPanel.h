#pragma once

#include <QPushButton>

namespace veskora {

/// A panel of the status bar that is pressed. Off is only a dimmed look: a panel never stops
/// answering.
class StatusPanel : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(bool look READ look WRITE setLook)
public:
    explicit StatusPanel(QWidget *parent);

    bool look() const { return look_; }
    void setLook(bool on);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool look_ = true;
};

} // namespace veskora
