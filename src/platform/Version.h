#pragma once

namespace veskora {

/// Major and minor version, as "0.00".
inline constexpr const char *programVersion = "1.00";

} // namespace veskora
