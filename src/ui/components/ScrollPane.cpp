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
    // As margins, which layouts count when they ask for the height of wrapped texts.
    const int spare = std::max(0, width() - m_maximumWidth);
    widget()->setContentsMargins(spare / 2, 0, spare - spare / 2, 0);
    QScrollArea::resizeEvent(event);
}

} // namespace clipwren
