#pragma once

#include "BatchDesktop.h"
#include "Metablites.h"

#include <ostream>

namespace veskora {

/// A fresh store and a desktop that says nothing, for one benchmark.
class BenchDesktop
{
public:
    BenchDesktop()
    {
        resetStore();
        setDesktop(&desktop_);
    }
    ~BenchDesktop() { setDesktop(nullptr); }
    BenchDesktop(const BenchDesktop &) = delete;
    BenchDesktop &operator=(const BenchDesktop &) = delete;

private:
    std::ostream nowhere_{nullptr};
    BatchDesktop desktop_{nowhere_};
};

} // namespace veskora
