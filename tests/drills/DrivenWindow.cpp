#include "DrivenWindow.h"

#include "JournalKeeper.h"
#include "Metablites.h"
#include "ModelText.h"

#include <QAction>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QTimer>

namespace veskora {

Answer UnattendedDesktop::message(const std::string &, Icon, Buttons buttons)
{
    return buttons == Buttons::ok ? Answer::ok : Answer::no;
}

std::size_t UnattendedDesktop::choose(const std::string &, const std::vector<std::string> &answers,
                                      std::size_t)
{
    const std::size_t any = below(2 * answers.size());
    return any < answers.size() ? any : 0;
}

DrivenWindow::DrivenWindow(UnattendedDesktop &desktop, const QString &model)
    : DrivenWindow(desktop, false)
{
    start(model);
}

DrivenWindow::DrivenWindow(UnattendedDesktop &desktop, bool withWelcome) : desktop_(desktop)
{
    desktop.storeSetting("Startup", "ShowForm", withWelcome ? "1" : "0");
    desktop.attach(&window_);
}

void DrivenWindow::trigger(const QString &action)
{
    auto *found = window_.findChild<QAction *>(action);
    if (found == nullptr)
        qFatal("no action named %s", qPrintable(action));
    found->trigger();
}

QPointF DrivenWindow::anywhere()
{
    return {static_cast<double>(desktop_.below(static_cast<std::size_t>(canvas().width()))),
            static_cast<double>(desktop_.below(static_cast<std::size_t>(canvas().height())))};
}

void DrivenWindow::mouse(QEvent::Type type, const QPointF &at)
{
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, canvas().mapToGlobal(at), Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas(), &event);
}

void DrivenWindow::drawElement()
{
    const QPointF end = anywhere();
    mouse(QEvent::MouseButtonPress, anywhere());
    mouse(QEvent::MouseMove, end);
    mouse(QEvent::MouseButtonRelease, end);
}

void DrivenWindow::keepJournal()
{
    for (int i = 0; i < 4; ++i) { // changed, at rest, written, on its way to the disk
        QMetaObject::invokeMethod(find<QTimer>("JournalTimer"), "timeout");
        find<JournalKeeper>()->waitForWriting();
    }
}

void DrivenWindow::provideGroup()
{
    if (Arithmos_Omadon > 0)
        return;
    Arithmos_Omadon = 1;
    Omades(1, group::E) = Omades(1, group::A) = Omades(1, group::I) = 1;
}

QByteArray DrivenWindow::sumOfModel()
{
    return QCryptographicHash::hash(modelText(), QCryptographicHash::Md5).toHex();
}

} // namespace veskora
