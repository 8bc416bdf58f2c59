#include "Clock.h"

#include <array>
#include <ctime>

namespace veskora {

TimeOfDay localTimeOfDay()
{
    std::timespec now = {};
    (void)std::timespec_get(&now, TIME_UTC);
    std::tm local = {};
    (void)::localtime_r(&now.tv_sec, &local);
    std::array<char, 16> text;
    const std::size_t length = std::strftime(text.data(), text.size(), "%H:%M:%S", &local);
    const int wholeSeconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return {std::string(text.data(), length),
            wholeSeconds + static_cast<double>(now.tv_nsec) / 1e9};
}

} // namespace veskora
