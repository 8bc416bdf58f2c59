#pragma once

#include <QApplication>

namespace veskora {

/// The process as Qt sees it. A fault that nobody caught ends the process here, inside modal
/// dialogs too; before that the model is written to a recovery file and the user is told.
class Application : public QApplication
{
    Q_OBJECT
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;

    /// Says what happened and where the model is, and ends the process. Once: a fault while it
    /// speaks ends the process at once.
    [[noreturn]] static void endByFault(const char *facts) noexcept;
};

/// For what never reaches `notify`: an exception that leaves a thread or a destructor.
void installTerminateHandler();

} // namespace veskora
