#include "Recovery.h"

#include "Functions.h"
#include "Metablites.h"
#include "ModelText.h"
#include "RecoveryFolder.h"

namespace veskora {

std::string writeRecoveryFile()
try {
    return keepInRecoveryFolder(modelText(), modelExtension);
} catch (const std::exception &) {
    return {}; // a model that no file can hold, or no memory for its text
}

bool isModelEmpty()
{
    return Arithmos_Kombon == 0 && Arithmos_Omadon == 0 && Arithmos_Stoixeion == 0;
}

} // namespace veskora
