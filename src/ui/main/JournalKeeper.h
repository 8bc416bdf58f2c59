#pragma once

#include "Journal.h"

#include <QTimer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace veskora {

class FileCommands;

/// Keeps the journal of the window's model, and offers those that ended processes have left. While
/// the save question would come, the window's title bears the desktop's mark of unsaved changes.
class JournalKeeper : public QObject
{
    Q_OBJECT
public:
    JournalKeeper(QWidget *window, FileCommands &files);

    /// Once, when the window is there.
    void offerLost();

    /// For tests: until what is being written stands in its file.
    void waitForWriting() { journal_.waitForWriting(); }

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void look();
    void markUnsaved();

    QWidget *const window_;
    FileCommands &files_;
    Journal journal_;
    QTimer timer_{this};
    std::string marked_;  ///< name and text of the model when the title was last marked
    std::string refusal_; ///< that the user was told last; empty when the journal is written again
};

} // namespace veskora
