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

/// For ends that never reach `notify`: an exception that leaves a destructor, a signal as at
/// log-out, a display that goes away. The model is written to a recovery file, unless it stands in
/// its file as it is. To be called once the application is there.
void guardOtherEnds();

/// The process ends as the user wants it: nothing is kept.
void endsInOrder();

} // namespace veskora
