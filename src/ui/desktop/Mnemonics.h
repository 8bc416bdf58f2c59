#pragma once
/// @file
/// Keyboard access to menus in every language.

#include <QList>

class QAction;

namespace veskora {

/// Gives each caption without a mnemonic one of its letters that no other of @p actions uses, so
/// that translators need not mind them.
void assignMnemonics(const QList<QAction *> &actions);

} // namespace veskora
