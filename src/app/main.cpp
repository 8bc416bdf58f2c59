#include "Application.h"
#include "frmMain.h"
#include "Metablites.h"
#include "QtDesktop.h"

#include <QIcon>

#include <clocale>

int main(int argc, char **argv)
{
    using namespace veskora;
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
        window.start(Application::arguments().mid(1).join(' '));
        const int status = Application::exec();
        endsInOrder();
        return status;
    } catch (const std::exception &error) {
        Application::endByFault(error.what());
    }
}
