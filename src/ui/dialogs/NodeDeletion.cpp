#include "NodeDeletion.h"

#include "Desktop.h"
#include "Diagrafes.h"
#include "Functions.h"
#include "RowQueries.h"

namespace veskora {

bool deleteNodeWithElements(int n)
{
    if (elementAt(n) != 0) {
        const std::string text =
            Metafrasi(624, "There are elements connected to the node, that must also be deleted.");
        Grammi_Log(text, logColour::red);
        if (desktop().message(text + "\r\n"
                                  + Metafrasi(625, "Do you want the deletion process to proceed?"),
                              Icon::exclamation, Buttons::okCancel)
            != Answer::ok)
            return false;
    }
    while (const int e = elementAt(n))
        Diagrafi_Stoixeiou(static_cast<std::int16_t>(e));
    Diagrafi_Kombou(static_cast<std::int16_t>(n));
    return true;
}

} // namespace veskora
