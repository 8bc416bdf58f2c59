#pragma once
/// @file
/// Keyboard access to menus and dialogs in every language.

#include <QStringList>

#include <functional>
#include <vector>

class QAction;
class QWidget;

namespace veskora {

/// A text in sight, and how it is shown when it has got its letter.
struct Caption
{
    QString text;
    std::function<void(const QString &)> show;
};

/// The caption of an action or a widget that gives it by @p text and takes it by @p setText.
template <typename Part, typename Text, typename SetText>
Caption captionOf(Part *part, Text text, SetText setText)
{
    return {(part->*text)(), [part, setText](const QString &shown) { (part->*setText)(shown); }};
}

/// Gives each of @p captions without a mnemonic one of its letters that neither another one uses
/// nor a mnemonic of @p taken, so that translators need not mind them.
void assignMnemonics(const std::vector<Caption> &captions, const QStringList &taken = {});

/// The same for the entries of a menu.
void assignMnemonics(const QList<QAction *> &actions);

/// The same for the buttons, checks, group boxes and labelled fields of @p dialog; or of a page of
/// one, beside whose captions those with the mnemonics @p taken are in sight too.
void assignDialogMnemonics(QWidget *dialog, const QStringList &taken = {});

} // namespace veskora
