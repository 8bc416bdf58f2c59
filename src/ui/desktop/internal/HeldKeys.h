#pragma once

namespace veskora {

/// From now on a held key gives its command once in all windows and boxes: a shortcut, Enter
/// anywhere, Space on a button. It would answer the box that its first press has opened, unread, or
/// add row after row. To be called again when another filter over the application must come after.
void countHeldKeysOnce();

} // namespace veskora
