#include "Mnemonics.h"

#include <QAction>
#include <QKeySequence>
#include <QSet>

namespace veskora {

namespace {

QChar mnemonicOf(const QString &caption)
{
    const qsizetype at = caption.indexOf('&');
    return at >= 0 && at + 1 < caption.size() ? caption[at + 1].toLower() : QChar();
}

/// First the beginnings of words, then any letter.
qsizetype freeLetter(const QString &caption, const QSet<QChar> &used)
{
    const auto isFree = [&](qsizetype at) {
        return caption[at].isLetterOrNumber() && !used.contains(caption[at].toLower());
    };
    for (qsizetype at = 0; at < caption.size(); ++at)
        if ((at == 0 || !caption[at - 1].isLetterOrNumber()) && isFree(at))
            return at;
    for (qsizetype at = 0; at < caption.size(); ++at)
        if (isFree(at))
            return at;
    return -1;
}

} // namespace

void assignMnemonics(const QList<QAction *> &actions)
{
    QSet<QChar> used;
    for (const QAction *action : actions)
        if (action->isVisible())
            used.insert(mnemonicOf(action->text()));
    for (QAction *action : actions) {
        QString caption = action->text();
        if (action->isSeparator() || !action->isVisible() || caption.contains('&'))
            continue;
        const qsizetype at = freeLetter(caption, used);
        if (at < 0)
            continue;
        used.insert(caption[at].toLower());
        action->setText(caption.insert(at, '&'));
    }
}

} // namespace veskora
