#pragma once

#include "Journal.h"

#include <QTimer>

namespace veskora {

class FileCommands;

/// Keeps the journal of the window's model, and offers those that ended processes have left.
class JournalKeeper : public QObject
{
    Q_OBJECT
public:
    JournalKeeper(QObject *window, FileCommands &files);

    /// Once, when the window is there.
    void offerLost();

    /// For tests: until what is being written stands in its file.
    void waitForWriting() { journal_.waitForWriting(); }

private:
    void look();

    FileCommands &files_;
    Journal journal_;
    QTimer timer_{this};
    std::string refusal_; ///< that the user was told last; empty when the journal is written again
};

} // namespace veskora
