#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace veskora {

class FileCommands;

/// The entries of "Open recent", made anew whenever it opens, as other running copies of the
/// program open files too. Where there is none, the entry that says so stays.
class RecentMenu : public QObject
{
    Q_OBJECT
public:
    RecentMenu(QMenu *menu, FileCommands &files);

private:
    void fill();

    QMenu *const menu_;
    FileCommands &files_;
};

} // namespace veskora
