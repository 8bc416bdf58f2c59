#include "Script.h"

#include "Sound.h"

namespace veskora {

Script::Script(const QString &path, bool isReplay) : isReplay_(isReplay), file_(path)
{
    require(
        file_.open(isReplay ? QIODevice::ReadOnly : QIODevice::WriteOnly | QIODevice::Unbuffered),
        "script file");
    while (isReplay && !file_.atEnd())
        replayed_ << Line{QString::fromUtf8(file_.readLine()).chopped(1).split('\t')};
}

void Script::keep(const QStringList &fields)
{
    if (!isReplay_)
        file_.write(fields.join('\t').toUtf8() + '\n');
}

std::optional<Line> Script::next()
{
    while (nextAnswer())
        ;
    return replayed_.isEmpty() ? std::nullopt : std::optional(replayed_.takeFirst());
}

std::optional<QString> Script::nextAnswer()
{
    if (replayed_.isEmpty() || replayed_.front().verb() != "answer")
        return {};
    return replayed_.takeFirst().at(1);
}

} // namespace veskora
