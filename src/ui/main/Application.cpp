#include "Application.h"

#include "Functions.h"
#include "QtDesktop.h"
#include "Recovery.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace veskora {

namespace {

std::string recoveryText()
{
    if (isModelEmpty())
        return {};
    const std::string path = writeRecoveryFile();
    return path.empty() ? Metafrasi(117, "The model could not be kept.")
                        : Metafrasi(116, "The model is kept in the recovery file:") + " " + path;
}

} // namespace

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &error) {
        endByFault(error.what());
    } catch (...) {
        endByFault("unknown error");
    }
}

void Application::endByFault(const char *facts) noexcept
{
    static bool ending = false;
    if (std::exchange(ending, true))
        std::_Exit(EXIT_FAILURE);
    const std::string kept = recoveryText(); // before anything that may go wrong again
    std::fprintf(stderr, "Veskora_ML: %s\n%s\n", facts, kept.c_str());
    desktop().setPointer(Pointer::standard);
    desktop().message(Metafrasi(115, "The program must end because of an error:") + "\r\n" + facts
                          + (kept.empty() ? "" : "\r\n\r\n" + kept),
                      Icon::critical);
    std::_Exit(EXIT_FAILURE);
}

void installTerminateHandler()
{
    std::set_terminate([] {
        const std::string kept = recoveryText();
        std::fprintf(stderr, "Veskora_ML: the program ended by an error\n%s\n", kept.c_str());
        std::abort();
    });
}

} // namespace veskora
