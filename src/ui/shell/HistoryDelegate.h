#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace clipwren {

class HistoryListModel;

/// Draws the rows of a `HistoryListModel`, with a button at the end that downloads again.
class HistoryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    HistoryDelegate(const HistoryListModel &model, QObject *parent);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

Q_SIGNALS:
    void redownloadClicked(const QModelIndex &index);

private:
    const HistoryListModel &m_model;
    QPersistentModelIndex m_pressed; // the row whose button the mouse went down on
};

} // namespace clipwren
