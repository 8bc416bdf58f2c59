#pragma once
/// @file
/// The lines of a session: those of a file, or new ones that are written before they are done.

#include "Line.h"

#include <QFile>

#include <optional>

namespace veskora {

class Script
{
public:
    /// The lines of the file @p path once more, or new ones, which are kept there.
    Script(const QString &path, bool isReplay);

    bool isReplay() const { return isReplay_; }
    /// At once, so that a crash leaves it; of a replay nothing is kept.
    void keep(const QStringList &fields);
    /// The next line of a replay; answers that nothing has asked for are left out.
    std::optional<Line> next();
    /// The next line of a replay where it is an answer, else none.
    std::optional<QString> nextAnswer();

private:
    const bool isReplay_;
    QFile file_;
    QList<Line> replayed_;
};

} // namespace veskora
