#pragma once

#include <QIcon>
#include <QPushButton>

namespace veskora {

/// A switch between two directions; its picture shows the one in force.
class DirectionButton : public QPushButton
{
    Q_OBJECT
public:
    explicit DirectionButton(QWidget *parent = nullptr);

    void setPictures(const char *on, const char *off);

protected:
    void initStyleOption(QStyleOptionButton *option) const override;

private:
    void showPicture();

    QIcon on_, off_;
};

} // namespace veskora
