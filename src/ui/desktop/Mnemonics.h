#pragma once
/// @file
/// Keyboard access to menus and dialogs in every language.

#include <QStringList>

class QAction;
class QWidget;

namespace veskora {

/// Gives each caption without a mnemonic one of its letters that no other of @p actions uses, so
/// that translators need not mind them.
void assignMnemonics(const QList<QAction *> &actions);

/// The same for the buttons, checks, group boxes and labelled fields of @p dialog; or of a page of
/// one, beside whose captions those with the mnemonics @p taken are in sight too.
void assignDialogMnemonics(QWidget *dialog, const QStringList &taken = {});

} // namespace veskora
