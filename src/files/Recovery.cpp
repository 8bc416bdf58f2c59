#include "Recovery.h"

#include "Fault.h"
#include "Files.h"
#include "Metablites.h"
#include "RecoveryFolder.h"

namespace veskora {

std::string writeRecoveryFile()
try {
    return keepInRecoveryFolder(modelText(), ".vsk");
} catch (const std::exception &) {
    return {}; // a model that no file can hold, or no memory for its text
}

bool isModelEmpty()
{
    return Arithmos_Kombon == 0 && Arithmos_Omadon == 0 && Arithmos_Stoixeion == 0;
}

} // namespace veskora
