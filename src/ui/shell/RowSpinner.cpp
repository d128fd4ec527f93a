#include "ui/shell/RowSpinner.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QEvent>
#include <QListView>
#include <QScrollBar>

#include <utility>

namespace clipwren {

RowSpinner::RowSpinner(QListView &list, std::function<bool(const QModelIndex &)> spins,
                       QObject *parent)
    : QObject(parent), m_list(list), m_spins(std::move(spins))
{
    list.installEventFilter(this);
    connect(list.model(), &QAbstractItemModel::dataChanged, this, &RowSpinner::follow);
    connect(list.verticalScrollBar(), &QScrollBar::valueChanged, this, &RowSpinner::follow);
    connect(list.verticalScrollBar(), &QScrollBar::rangeChanged, this, &RowSpinner::follow);
}

bool RowSpinner::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide
        || event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &RowSpinner::follow, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void RowSpinner::follow()
{
    if (Theme::current().reducedMotion() || rowsOnScreen().isEmpty())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(spinnerStepMilliseconds, this);
}

void RowSpinner::timerEvent(QTimerEvent *)
{
    m_degrees = (m_degrees + spinnerStepDegrees) % 360;
    const QList<QModelIndex> rows = rowsOnScreen();
    for (const QModelIndex &row : rows)
        m_list.update(row);
    if (rows.isEmpty())
        m_timer.stop();
}

QList<QModelIndex> RowSpinner::rowsOnScreen() const
{
    QList<QModelIndex> rows;
    if (!m_list.isVisible())
        return rows;
    const QAbstractItemModel &model = *m_list.model();
    const QRect screen = m_list.viewport()->rect();
    const int first = std::max(m_list.indexAt(screen.topLeft()).row(), 0);
    for (int row = first; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (!m_list.visualRect(index).intersects(screen))
            break;
        if (m_spins(index))
            rows << index;
    }
    return rows;
}

} // namespace clipwren
