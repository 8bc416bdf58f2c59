#pragma once

#include <QScrollArea>

namespace veskora {

/// The contents of a form that may be larger than a screen: they scroll there, while what stands
/// beside the area, such as a row of buttons, stays in sight. Where the screen has room the form is
/// as large as without it. What gets the focus is scrolled into sight.
class FormArea : public QScrollArea
{
    Q_OBJECT
public:
    explicit FormArea(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Gives the areas of @p form the room that its screen has; makes the form no larger than that,
    /// and brings it back onto the screen. Done by itself when the form is first shown; to be
    /// called where it is sized before, or where its contents have changed.
    static void fitToScreen(QWidget *form);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;

private:
    QSize fitted(QSize contents) const;
    void tellSize();

    QSize room_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    bool isProbe_ = false;
};

} // namespace veskora
