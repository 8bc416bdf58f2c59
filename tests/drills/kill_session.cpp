// A session that only a kill ends: it draws, turns supports and saves at random moments, and notes
// each state of the model with its time.
//   veskora_kill_session NOTES MODEL SEED    the session, in the user's folders of the environment
//   veskora_kill_session --read FILE...      status 0 when each file is a model

#include "Application.h"
#include "BatchDesktop.h"
#include "DrivenWindow.h"
#include "Files.h"
#include "Metablites.h"
#include "Recovery.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

#include <chrono>
#include <iostream>

namespace veskora {
namespace {

int readFiles(const QStringList &files)
{
    BatchDesktop desktop(std::cerr);
    setDesktop(&desktop);
    for (const QString &file : files) {
        std::string path = file.toStdString();
        if (!Anagnosi_Arxeiou(path))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

class Session : public QObject
{
public:
    Session(DrivenWindow &window, UnattendedDesktop &desktop, const QString &notes)
        : window_(window), desktop_(desktop), notes_(notes)
    {
        if (!notes_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            throw std::runtime_error("the notes cannot be written");
        note();
        act();
    }

private:
    void act()
    {
        if (Arithmos_Stoixeion > 150) {
            window_.trigger("mnuNEOitem");
            note();
        }
        DrivenWindow::provideGroup();
        if (const unsigned whim = desktop_.below(60); whim == 0) {
            window_.trigger("mnuAPOTHIKEFSIitem");
        } else if (whim <= 3) {
            const QPointF place = window_.anywhere();
            for (const QEvent::Type type :
                 {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                  QEvent::MouseButtonRelease})
                window_.mouse(type, place);
        } else {
            window_.drawElement();
        }
        note();
        // Now at work without a second's rest, now resting.
        const unsigned rest = desktop_.below(20) == 0 ? 3000 : 500;
        QTimer::singleShot(static_cast<int>(desktop_.below(rest)), this, &Session::act);
    }

    /// Time in seconds, sum of the model's text, whether it has anything to lose.
    void note()
    {
        const QByteArray sum = DrivenWindow::sumOfModel();
        if (sum == noted_)
            return;
        noted_ = sum;
        using Seconds = std::chrono::duration<double>;
        const Seconds now = std::chrono::steady_clock::now().time_since_epoch();
        notes_.write(QByteArray::number(now.count(), 'f', 4) + ' ' + sum + ' '
                     + (isModelEmpty() ? "0" : "1") + '\n');
    }

    DrivenWindow &window_;
    UnattendedDesktop &desktop_;
    QFile notes_;
    QByteArray noted_;
};

int run(const QStringList &arguments)
{
    const QString &model = arguments[2];
    UnattendedDesktop desktop(model, arguments[3].toUInt());
    setDesktop(&desktop);
    DrivenWindow window(desktop, QFile::exists(model) ? model : QString());
    const Session session(window, desktop, arguments[1]);
    return QApplication::exec();
}

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    const veskora::Application application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    veskora::resetStore();
    if (arguments.value(1) == "--read")
        return veskora::readFiles(arguments.mid(2));
    return arguments.size() == 4 ? veskora::run(arguments) : 2;
}
