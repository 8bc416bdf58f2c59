#pragma once

namespace veskora {

/// Deletes node @p n, and after a question the elements that end there.
/// @return whether it was deleted
bool deleteNodeWithElements(int n);

} // namespace veskora
