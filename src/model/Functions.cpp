#include "Functions.h"

#include "Desktop.h"
#include "Metablites.h"

namespace veskora {

std::string Metafrasi(int slot, std::string_view standard)
{
    return Nai_Agglika ? std::string(standard) : Pinakas_Glossas(slot);
}

std::uint32_t logColourWord(std::int16_t xroma)
{
    static constexpr std::array<std::uint32_t, 5> colours = {0, 8388608, 32768, 255, 8421504};
    return colours.at(static_cast<std::size_t>(xroma));
}

void Grammi_Log(const std::string &text, std::int16_t xroma, bool entona, bool idia_grammi)
{
    desktop().insertLog((idia_grammi ? " " : "\r\n ") + text, logColourWord(xroma), entona);
}

void showRefusal(const std::string &text)
{
    desktop().message(text, Icon::exclamation);
    Grammi_Log(text, logColour::red);
}

void showModelCaption(const std::string &path)
{
    const std::string title(applicationTitle);
    desktop().setCaption(path.empty() ? title + " - Untitled.vsk" : path + " - " + title);
}

} // namespace veskora
