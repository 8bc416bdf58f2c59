#include "Desktop.h"

#include "Fault.h"

#include <array>
#include <ctime>

namespace veskora {

namespace {

Desktop *current = nullptr;

std::string formatted(const std::tm &time, const char *format)
{
    std::array<char, 16> text;
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

} // namespace

TimeOfDay UserStore::timeOfDay()
{
    std::timespec now = {};
    (void)std::timespec_get(&now, TIME_UTC);
    std::tm local = {};
    (void)::localtime_r(&now.tv_sec, &local);
    const int wholeSeconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return {formatted(local, "%H:%M:%S"), wholeSeconds + static_cast<double>(now.tv_nsec) / 1e9,
            formatted(local, "%Y-%m-%d")};
}

Desktop &desktop()
{
    if (current == nullptr)
        throw Fault("no desktop has been set");
    return *current;
}

void setDesktop(Desktop *desktop)
{
    current = desktop;
}

} // namespace veskora
