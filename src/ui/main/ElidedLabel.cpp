#include "ElidedLabel.h"

#include <QHelpEvent>
#include <QStylePainter>
#include <QToolTip>

namespace veskora {

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

bool ElidedLabel::isCut() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    if (!isCut())
        return QLabel::paintEvent(event);
    QStylePainter(this).drawItemText(
        contentsRect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()), foregroundRole());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isCut())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text().trimmed(), this);
    return true;
}

} // namespace veskora

#include "moc_ElidedLabel.cpp"
