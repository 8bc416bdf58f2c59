#include "DirectionButton.h"

#include <QStyleOptionButton>

namespace veskora {

DirectionButton::DirectionButton(QWidget *parent) : QPushButton(parent)
{
    setCheckable(true);
    setAutoDefault(false); // Enter stays with OK
    setIconSize(QSize(72, 40));
    connect(this, &QPushButton::toggled, this, &DirectionButton::showPicture);
}

void DirectionButton::setPictures(const char *on, const char *off)
{
    on_ = QIcon(on);
    off_ = QIcon(off);
    showPicture();
}

void DirectionButton::showPicture()
{
    setIcon(isChecked() ? on_ : off_);
}

/// Neither direction is the pressed one.
void DirectionButton::initStyleOption(QStyleOptionButton *option) const
{
    QPushButton::initStyleOption(option);
    option->state.setFlag(QStyle::State_On, false);
    option->state.setFlag(QStyle::State_Raised, !isDown());
}

} // namespace veskora

#include "moc_DirectionButton.cpp"
