#include "Mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
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

void assignMnemonics(const std::vector<Caption> &captions, const QStringList &taken)
{
    QSet<QChar> used;
    for (const QString &text : taken)
        used.insert(mnemonicOf(text));
    for (const Caption &caption : captions)
        used.insert(mnemonicOf(caption.text));
    for (const auto &[text, show] : captions)
        if (const qsizetype at = freeLetter(text, used); at >= 0 && !text.contains('&')) {
            used.insert(text[at].toLower());
            show(QString(text).insert(at, '&'));
        }
}

void assignMnemonics(const QList<QAction *> &actions)
{
    std::vector<Caption> captions;
    for (QAction *action : actions)
        if (action->isVisible() && !action->isSeparator())
            captions.push_back(captionOf(action, &QAction::text, &QAction::setText));
    assignMnemonics(captions);
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

    std::vector<Caption> captions;
    const auto collect = [&](const auto &widgets, auto text, auto setText) {
        for (auto *widget : widgets)
            captions.push_back(captionOf(widget, text, setText));
    };
    collect(buttons, &QPushButton::text, &QPushButton::setText);
    collect(labels, &QLabel::text, &QLabel::setText);
    collect(checks, &QAbstractButton::text, &QAbstractButton::setText);
    collect(groups, &QGroupBox::title, &QGroupBox::setTitle);
    assignMnemonics(captions, taken);
}

} // namespace veskora
