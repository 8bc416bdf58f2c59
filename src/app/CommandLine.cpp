#include "CommandLine.h"

#include "Version.h"

#include <string>

namespace veskora {

namespace {

// In English, as the batch runner's: which language the program speaks stands in the user's
// settings, and they are read when there is a desktop.
constexpr std::string_view usage =
    "Usage: Veskora_ML [QT-OPTION...] [--] [MODEL.vsk]\n"
    "       Veskora_ML --help | --version\n"
    "\n"
    "Opens the window of Kalvorn Veskora ML, a program for the linear static analysis\n"
    "of plane frames, and the model in it when one is given. Veskora_batch does\n"
    "without a window and writes reports of many models at once.\n"
    "\n"
    "  MODEL.vsk   a model file, as this program and all earlier ones have saved it,\n"
    "              whatever its ending. All arguments together are the name of one\n"
    "              file, with a blank between them. What cannot be read is told in a\n"
    "              box, and the window is empty.\n"
    "  --          first: what follows is a model, also where it would be an option\n"
    "  -h, --help  first: this text\n"
    "  --version   first: the version\n"
    "  QT-OPTION   what every program made with Qt takes, such as -platform NAME and\n"
    "              -style NAME\n"
    "\n"
    "Environment:\n"
    "  LC_ALL, LC_NUMERIC, LANG\n"
    "              the decimal separator of fields and reports, where model files\n"
    "              always have a point; the first and the last also the paper proposed.\n"
    "              The language is chosen in the welcome form.\n"
    "  XDG_CONFIG_HOME\n"
    "              folder of the settings, ~/.config when not set\n"
    "  XDG_DATA_HOME\n"
    "              folder of journals, recovery files and the copy of the help,\n"
    "              ~/.local/share when not set\n"
    "  XDG_DATA_DIRS\n"
    "              where an installed program is looked for; without one, this one\n"
    "              registers the type of model files in XDG_DATA_HOME\n"
    "  TMPDIR      folder of temporary files, /tmp when not set\n"
    "  PATH        where an installed program and a calculator are looked for\n"
    "  QT_QPA_PLATFORM, QT_SCALE_FACTOR, QT_STYLE_OVERRIDE, DISPLAY, WAYLAND_DISPLAY\n"
    "              the display, as for every program made with Qt\n"
    "\n"
    "Files, in these folders:\n"
    "  Kalvorn Veskora ML/settings.ini\n"
    "              the settings\n"
    "  Kalvorn Veskora ML/Recovery\n"
    "              Veskora_journal_*.vsk has a model that is not saved yet and is\n"
    "              offered at the next start; other model files there are recovery\n"
    "              files, written when a model would have been lost\n"
    "\n"
    "Exit status: 0 closed by the user, 1 ended by an error or because the display went\n"
    "away, 128 and the signal's number when ended by a signal. In the last two cases a\n"
    "model that is not saved is kept, and standard error says where.\n";

} // namespace

std::string_view answerTo(std::string_view argument)
{
    static const std::string version = std::string("Veskora_ML ") + programVersion + "\n";
    if (argument == "--help" || argument == "-h")
        return usage;
    return argument == "--version" ? std::string_view(version) : std::string_view();
}

} // namespace veskora
