#pragma once

#include "epilisi.h"
#include "Metablites.h"
#include "Models.h"
#include "RowQueries.h"
#include "ScriptedDesktop.h"

namespace veskora {

/// Analyses the store's model, which must succeed.
inline void analyse()
{
    Epilisi();
    ASSERT_FALSE(Sfalma_Epilisis);
}

inline double displacement(int n, int component)
{
    return Metatopiseis(freedomOf(n, component));
}

} // namespace veskora
