#include "ui/components/ScrollPane.h"

#include <QAccessibleWidget>

#include <algorithm>

namespace clipwren {
namespace {

/// Qt's own counts the scroll bars that are shown, and reads behind the end of its list where an
/// assistive tool asks for one that has gone meanwhile.
QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const pane = qobject_cast<ScrollPane *>(object);
    return pane ? new QAccessibleWidget(pane, QAccessible::Client) : nullptr;
}

} // namespace

ScrollPane::ScrollPane(QWidget *content, int maximumWidth, QWidget *parent)
    : QScrollArea(parent), m_maximumWidth(maximumWidth)
{
    // Qt takes the same factory only once.
    QAccessible::installFactory(makeAccessible);
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
