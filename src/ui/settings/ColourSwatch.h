#pragma once

#include <QToolButton>

namespace veskora {

/// A button that shows a colour, at the left of its caption if it has one.
class ColourSwatch : public QToolButton
{
    Q_OBJECT
public:
    explicit ColourSwatch(QWidget *parent = nullptr);

    /// The colour word, as it was given.
    double colour() const { return word_; }
    void setColour(double word);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double word_ = 0;
};

} // namespace veskora
