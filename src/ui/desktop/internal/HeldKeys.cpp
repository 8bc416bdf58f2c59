#include "HeldKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>

namespace veskora {

namespace {

class HeldKeys : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Shortcut: // the keys that it is made of came before as a ShortcutOverride
            return isHeld_;
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            break;
        default:
            return false;
        }
        const auto *key = static_cast<QKeyEvent *>(event);
        if (event->type() == QEvent::KeyRelease) {
            releasedKey_ = key->key();
            releasedAt_ = key->timestamp();
            return false;
        }
        // An X server repeats a key by a release and a press of one moment, which Qt does not
        // always see together.
        isHeld_ = key->isAutoRepeat()
                  || (key->timestamp() != 0 && key->timestamp() == releasedAt_
                      && key->key() == releasedKey_);
        return isHeld_ && event->type() == QEvent::KeyPress && presses(watched, key->key());
    }

private:
    static bool presses(const QObject *watched, int key)
    {
        // What nothing in a dialog takes comes to the dialog, which has but commands for it.
        return key == Qt::Key_Return || key == Qt::Key_Enter
               || (key == Qt::Key_Space && qobject_cast<const QAbstractButton *>(watched))
               || qobject_cast<const QDialog *>(watched);
    }

    bool isHeld_ = false;
    int releasedKey_ = 0;    ///< the key that was released last
    quint64 releasedAt_ = 0; ///< ms
};

} // namespace

void countHeldKeysOnce()
{
    static HeldKeys filter;
    qApp->installEventFilter(&filter); // one that is installed already comes to the front
}

} // namespace veskora
