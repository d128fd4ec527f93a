#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace clipwren {

class RecentListModel;
struct LibraryRow;

/// Draws the rows of a `RecentListModel`.
class RecentDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `spinnerDegrees` tells how far the spinners of re-encodes are turned.
    RecentDelegate(const RecentListModel &model, std::function<int()> spinnerDegrees,
                   QObject *parent);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    LibraryRow rowOf(const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const RecentListModel &m_model;
    std::function<int()> m_spinnerDegrees;
};

} // namespace clipwren
