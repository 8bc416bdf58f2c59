#pragma once

#include <QObject>

namespace veskora {

class Hand;
class HTMLHelp;

/// The keys of all windows: F1 shows the help of the one in front, and while a drag goes on no key
/// starts a command, which would pull the model away under the pointer; Esc gives the drag up.
class KeyFilter : public QObject
{
    Q_OBJECT
public:
    KeyFilter(Hand &hand, HTMLHelp &help);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isHeldOff(const QEvent &event);
    bool askedForHelp(const QObject *watched, const QEvent &event);

    Hand &hand_;
    HTMLHelp &help_;
};

} // namespace veskora
