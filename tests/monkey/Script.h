#pragma once
/// @file
/// The lines of a session: those of a file, or new ones that are written before they are done.

#include "Line.h"

#include <QFile>

#include <memory>
#include <optional>

namespace veskora {

class Script
{
public:
    /// Lines are made, and kept in the file @p path.
    static Script kept(const QString &path);
    /// The lines are those of the file @p path.
    static Script of(const QString &path);

    bool isReplay() const { return replayed_.has_value(); }
    /// At once, so that a crash leaves it; of a replay nothing is kept.
    void keep(const QStringList &fields);
    /// The next line of a replay; answers that nothing has asked for are left out.
    std::optional<Line> next();
    /// The next line of a replay where it is an answer, else none.
    std::optional<QString> nextAnswer();

private:
    Script() = default;

    std::optional<QList<Line>> replayed_;
    std::unique_ptr<QFile> file_ = std::make_unique<QFile>();
};

} // namespace veskora
