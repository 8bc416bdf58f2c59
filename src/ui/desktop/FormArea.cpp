#include "FormArea.h"

#include "WindowParts.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace veskora {

namespace {

/// A size that decides that of its window, by which the rest of the window is measured.
constexpr QSize probe(100000, 100000);

/// What a window on the screen of @p form may measure inside its frame.
QSize screenRoom(const QWidget *form)
{
    QSize frame(0, form->style()->pixelMetric(QStyle::PM_TitleBarHeight));
    // Before a window is shown nobody knows its frame; that of its parent is like it.
    if (const QWidget *like = form->isVisible() ? form : form->parentWidget(); like != nullptr)
        frame = frame.expandedTo(like->window()->frameGeometry().size() - like->window()->size());
    return form->screen()->availableGeometry().size() - frame;
}

} // namespace

FormArea::FormArea(QWidget *parent) : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now != nullptr && widget()->isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

QSize FormArea::sizeHint() const
{
    return fitted(widget()->sizeHint());
}

QSize FormArea::minimumSizeHint() const
{
    return fitted(widget()->minimumSizeHint());
}

/// The size for @p contents in the room there is; a scroll bar takes some of the other direction's.
QSize FormArea::fitted(QSize contents) const
{
    if (isProbe_)
        return probe;
    if (const QLayout *layout = widget()->layout(); layout->hasHeightForWidth()) // lines that wrap
        contents.setHeight(
            std::max(contents.height(), layout->totalHeightForWidth(contents.width())));
    const QSize bars(
        contents.height() > room_.height() ? verticalScrollBar()->sizeHint().width() : 0,
        contents.width() > room_.width() ? horizontalScrollBar()->sizeHint().height() : 0);
    return (contents + bars).boundedTo(room_);
}

void FormArea::tellSize()
{
    for (QWidget *part = this; !part->isWindow(); part = part->parentWidget())
        part->updateGeometry();
}

void FormArea::fitToScreen(QWidget *form)
{
    const QList<FormArea *> areas = form->findChildren<FormArea *>();
    const auto tell = [&](bool isProbe) {
        for (FormArea *area : areas) {
            area->isProbe_ = isProbe;
            area->widget()->layout()->activate();
            area->tellSize();
        }
        form->layout()->invalidate();
    };
    tell(true);
    const QSize others = form->layout()->totalMinimumSize() - probe;
    const QSize screen = screenRoom(form);
    for (FormArea *area : areas)
        area->room_ = (screen - others).expandedTo({0, 0});
    tell(false);
    form->layout()->activate();
    form->resize(form->size().boundedTo(screen));
    if (!form->isVisible())
        return;
    form->move(placeWithin(form->screen()->availableGeometry(), form->frameGeometry()));
}

bool FormArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        tellSize();
    return QScrollArea::eventFilter(watched, event);
}

bool FormArea::event(QEvent *event)
{
    if (event->type() == QEvent::Polish) {
        // The ground of the form, or of a page of tabs, shows through.
        viewport()->setAutoFillBackground(false);
        widget()->setAutoFillBackground(false);
        fitToScreen(window());
    }
    return QScrollArea::event(event);
}

} // namespace veskora

#include "moc_FormArea.cpp"
