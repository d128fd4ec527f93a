#pragma once

#include "ui/components/Icon.h"

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace clipwren {

class LibraryListView;

/// Draws the rows of a `LibraryListModel` by its roles. Rows are drawn, not made of widgets, so
/// that long lists cost no more than what is on screen.
class LibraryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// For this view, which takes the delegate as its child.
    explicit LibraryDelegate(LibraryListView &view);

    /// Gives each row a button at its end.
    void setRowButton(Icon icon, const QString &toolTip);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

Q_SIGNALS:
    void rowButtonClicked(const QModelIndex &index);

private:
    QRect textPlace(const QStyleOptionViewItem &option) const;
    bool isOnButton(const QStyleOptionViewItem &option, const QPoint &point) const;
    void paintBackground(QPainter &painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const;
    void paintIconBox(QPainter &painter, const QStyleOptionViewItem &option,
                      const QModelIndex &index) const;
    void paintTexts(QPainter &painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintButton(QPainter &painter, const QStyleOptionViewItem &option) const;

    LibraryListView &m_view;
    Icon m_button; // null without one
    QString m_buttonToolTip;
    QPersistentModelIndex m_pressed; // the row whose button the mouse went down on
};

} // namespace clipwren
