#include "Script.h"

#include "Sound.h"

namespace veskora {

Script Script::kept(const QString &path)
{
    Script script;
    script.file_->setFileName(path);
    require(script.file_->open(QIODevice::WriteOnly | QIODevice::Unbuffered), "script file");
    return script;
}

Script Script::of(const QString &path)
{
    Script script;
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "script file");
    script.replayed_.emplace();
    while (!file.atEnd())
        *script.replayed_ << Line{QString::fromUtf8(file.readLine()).chopped(1).split('\t')};
    return script;
}

void Script::keep(const QStringList &fields)
{
    if (!isReplay())
        file_->write(fields.join('\t').toUtf8() + '\n');
}

std::optional<Line> Script::next()
{
    while (nextAnswer())
        ;
    return replayed_->isEmpty() ? std::nullopt : std::optional(replayed_->takeFirst());
}

std::optional<QString> Script::nextAnswer()
{
    if (replayed_->isEmpty() || replayed_->front().verb() != "answer")
        return {};
    return replayed_->takeFirst().at(1);
}

} // namespace veskora
