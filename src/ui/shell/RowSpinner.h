#pragma once

#include <QBasicTimer>
#include <QModelIndex>
#include <QObject>

#include <functional>

class QListView;

namespace clipwren {

/// Turns the spinners in the rows of a list. Wakes nobody up while no such row is on screen, and
/// stands still under reduced motion.
class RowSpinner : public QObject {
    Q_OBJECT

public:
    /// `spins` says which rows have one. The list must outlive this.
    RowSpinner(QListView &list, std::function<bool(const QModelIndex &)> spins,
               QObject *parent = nullptr);

    int degrees() const { return m_degrees; }
    bool isTurning() const { return m_timer.isActive(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void follow();
    QList<QModelIndex> rowsOnScreen() const;

    QListView &m_list;
    std::function<bool(const QModelIndex &)> m_spins;
    QBasicTimer m_timer;
    int m_degrees = 0;
};

} // namespace clipwren
