#include "Application.h"
#include "CommandLine.h"
#include "frmMain.h"
#include "Metablites.h"
#include "QtDesktop.h"

#include <QIcon>

#include <clocale>
#include <cstdlib>
#include <iostream>

int main(int argc, char **argv)
{
    using namespace veskora;
    // Before all that needs a display.
    if (const auto answer = answerTo(argc > 1 ? argv[1] : ""); !answer.empty())
        return std::cout << answer << std::flush ? EXIT_SUCCESS : EXIT_FAILURE;
    Application application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // Qt has taken over the user's
    Application::setDesktopFileName("veskora-ml");
    guardOtherEnds();
    try {
        resetStore();
        QtDesktop desktop;
        setDesktop(&desktop);
        Application::setWindowIcon(QIcon(":/icons/Veskora_ML.svg"));
        frmMain window;
        desktop.attach(&window);
        QStringList words = Application::arguments().mid(1); // Qt has taken its own options
        if (!words.isEmpty() && words.front() == "--")
            words.removeFirst();
        window.start(words.join(' '));
        const int status = Application::exec();
        endsInOrder();
        return status;
    } catch (const std::exception &error) {
        Application::endByFault(error.what());
    }
}
