#pragma once

namespace veskora {

inline constexpr const char *windowSessionOption = "--window-session"; ///< [MODEL]

/// The window in place of the benchmarks, until it is painted, and with a model until its analysis
/// and its M diagram are. Ends the process; comes back only where something failed.
int windowSession(int argc, char **argv);

} // namespace veskora
