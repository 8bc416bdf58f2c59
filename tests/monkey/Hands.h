#pragma once
/// @file
/// Does what a line says, by the events that a user's hands bring about. What the line names may
/// have gone; then nothing happens.

#include "Script.h"
#include "Watch.h"

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace veskora {

class Hands : public QObject
{
public:
    Hands(DrivenWindow &window, Watch &watch, const QString &folder);

    /// @return whether what the line names was there
    bool perform(const Line &line);

    /// Timers that run and wait for a line; time stands still else, so that a script has it.
    static QStringList timers();
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool chooseInMenu(const QString &menu, const QString &action);
    static bool pick(QMenu *menu, const QString &action);
    void drop(const QStringList &files);

    DrivenWindow &window_;
    Watch &watch_;
    const QString folder_;
    bool lets_ = false; ///< a timer's end through
};

} // namespace veskora
