#include "ui/components/ScrollPane.h"

#include <algorithm>

namespace clipwren {

ScrollPane::ScrollPane(QWidget *content, int maximumWidth, QWidget *parent)
    : QScrollArea(parent), m_maximumWidth(maximumWidth)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The controls inside take the keyboard.
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void ScrollPane::resizeEvent(QResizeEvent *event)
{
    // As margins, which layouts count when they ask for the height of wrapped texts. In the middle
    // of the whole pane, so that the column stays in its place when the scroll bar comes.
    const int left = std::max(0, (width() - m_maximumWidth) / 2);
    const int right = std::max(0, viewport()->width() - left - m_maximumWidth);
    widget()->setContentsMargins(left, 0, right, 0);
    QScrollArea::resizeEvent(event);
}

} // namespace clipwren
