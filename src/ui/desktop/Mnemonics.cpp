#include "Mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QSet>

#include <algorithm>

namespace veskora {

namespace {

QChar mnemonicOf(const QString &caption)
{
    const qsizetype at = caption.indexOf('&');
    return at >= 0 && at + 1 < caption.size() ? caption[at + 1].toLower() : QChar();
}

/// Whether one key gives the letter: those with an accent take two on some keyboards.
bool hasKey(QChar letter)
{
    return letter.isLetterOrNumber() && letter.decomposition().isEmpty()
           && letter.toLower() != QChar(u'\u0153'); // oe in one letter
}

/// First the beginnings of words, then any letter.
qsizetype freeLetter(const QString &caption, const QSet<QChar> &used)
{
    const auto isFree = [&](qsizetype at) {
        return hasKey(caption[at]) && !used.contains(caption[at].toLower());
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

void assignDialogMnemonics(QWidget *dialog, const QStringList &taken)
{
    const auto buttons = dialog->findChildren<QPushButton *>();
    auto checks = dialog->findChildren<QAbstractButton *>();
    checks.removeIf([](const QAbstractButton *button) {
        return qobject_cast<const QPushButton *>(button) != nullptr;
    });
    auto groups = dialog->findChildren<QGroupBox *>();
    groups.removeIf([](const QGroupBox *group) { // its letter would lead nowhere
        const auto parts = group->findChildren<QWidget *>();
        return std::ranges::all_of(
            parts, [](const QWidget *part) { return part->focusPolicy() == Qt::NoFocus; });
    });
    auto labels = dialog->findChildren<QLabel *>();
    // Of two labels of one field the longer one is enough: letters are scarce.
    labels.removeIf([all = labels](const QLabel *label) {
        return label->buddy() == nullptr || std::ranges::any_of(all, [label](const QLabel *other) {
                   return other->buddy() == label->buddy()
                          && other->text().size() > label->text().size();
               });
    });

    QObject owner;
    QList<QAction *> captions;
    const auto collect = [&](const auto &widgets, auto text) {
        for (const auto *widget : widgets)
            captions << new QAction((widget->*text)(), &owner);
    };
    collect(buttons, &QPushButton::text);
    collect(labels, &QLabel::text);
    collect(checks, &QAbstractButton::text);
    collect(groups, &QGroupBox::title);
    QList<QAction *> inSight = captions;
    for (const QString &caption : taken)
        inSight << new QAction(caption, &owner);
    assignMnemonics(inSight);

    const auto giveBack = [&](const auto &widgets, auto setText) {
        for (auto *widget : widgets)
            (widget->*setText)(captions.takeFirst()->text());
    };
    giveBack(buttons, &QPushButton::setText);
    giveBack(labels, &QLabel::setText);
    giveBack(checks, &QAbstractButton::setText);
    giveBack(groups, &QGroupBox::setTitle);
}

} // namespace veskora
