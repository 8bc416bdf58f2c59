#pragma once
/// @file
/// What stands between the user and the analysis.

namespace veskora {

/// Offers every unconnected node for deletion, one after the other, and then analyses the model.
/// Cancel ends it without an analysis, No analyses at once with the node in place. Without nodes
/// nothing happens. A finished analysis logs sums and the largest displacement, and repaints the
/// picture when it shows results. Where the structure can move freely, a log line leads to the
/// check, and `mechanismSuspected` says so; after a failed one another names its first free motion.
void Button_Epilisi();

/// Called first by whatever shows results: when the model has changed since the last analysis, asks
/// whether to analyse again. After No the caller goes on with the results there are.
void Erotisi_Epanepilisis();

} // namespace veskora
