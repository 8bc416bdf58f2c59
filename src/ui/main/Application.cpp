#include "Application.h"

#include "Desktop.h"
#include "Files.h"
#include "FileSystem.h"
#include "Functions.h"
#include "Journal.h"
#include "Metablites.h"
#include "Recovery.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace veskora {

namespace {

/// Without the destructors, which may do what ended the program once more.
[[noreturn]] void endNow(int status)
{
    removePrivateFolder();
    std::_Exit(status);
}

std::string recoveryText()
{
    if (isModelEmpty())
        return {};
    const std::string path = writeRecoveryFile();
    Journal::keepNow(); // the next start offers it
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
    endsInOrder();                           // what follows keeps the model itself
    const std::string kept = recoveryText(); // before anything that may go wrong again
    std::fprintf(stderr, "Veskora_ML: %s\n%s\n", facts, kept.c_str());
    desktop().setPointer(Pointer::standard);
    desktop().message(Metafrasi(115, "The program must end because of an error:") + "\r\n" + facts
                          + (kept.empty() ? "" : "\r\n\r\n" + kept),
                      Icon::critical);
    endNow(EXIT_FAILURE);
}

namespace {

bool inOrder = false;

/// Keeps what is not in its file. Says where on standard error: there may be no display any more.
void keepChangedModel()
{
    if (std::exchange(inOrder, true) || isModelEmpty() || isModelFile(Onoma_Arxeiou))
        return;
    std::fprintf(stderr, "Veskora_ML: %s\n", recoveryText().c_str());
}

std::array<int, 2> signalPipe = {-1, -1};

extern "C" void passSignalOn(int number)
{
    const auto byte = static_cast<char>(number);
    (void)!::write(signalPipe[1], &byte, 1); // all that is allowed here
}

} // namespace

void endsInOrder()
{
    inOrder = true;
}

void guardOtherEnds()
{
    std::atexit(keepChangedModel); // Qt ends the process so when the display goes away
    std::set_terminate([] {
        keepChangedModel();
        try {
            if (std::current_exception())
                std::rethrow_exception(std::current_exception());
        } catch (const std::exception &error) {
            std::fprintf(stderr, "Veskora_ML: %s\n", error.what());
        } catch (...) {
            std::fprintf(stderr, "Veskora_ML: unknown error\n");
        }
        std::abort();
    });
    if (::pipe2(signalPipe.data(), O_CLOEXEC) != 0)
        return;
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, [] {
        char number = 0;
        (void)!::read(signalPipe[0], &number, 1);
        keepChangedModel();
        endNow(128 + number);
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        if (std::signal(number, passSignalOn) == SIG_IGN) // as nohup wants it
            std::signal(number, SIG_IGN);
    // Who reads standard error may have gone with the display, before the model is kept.
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace veskora

#include "moc_Application.cpp"
