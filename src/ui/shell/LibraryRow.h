#pragma once

#include "ui/components/Icon.h"

#include <QStyleOptionViewItem>

#include <optional>

class QHelpEvent;

namespace clipwren {

/// How one item of the library's lists looks. Rows are drawn, not made of widgets, so that long
/// lists cost no more than what is on screen.
struct LibraryRow {
    Icon icon;
    std::optional<int> spinnerDegrees = std::nullopt; ///< a spinner in the icon's place
    QString title;
    QString detail;
    QString detailTail = {}; ///< stays whole when the detail is cut
    double opacity = 1;
    bool selected = false;
    bool ring = false;
    int trailingRoom = 0; ///< left free at the end, in logical pixels

    void paint(QPainter &painter, const QStyleOptionViewItem &option) const;

    /// Of an item, or of what lies above the items.
    static QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index);
    /// The room between the row's edges and what stands in it.
    static QRect contents(const QStyleOptionViewItem &option);
    /// Shows the whole title as a tool tip when the row shows less of it.
    bool showToolTip(const QHelpEvent &event, const QStyleOptionViewItem &option) const;

private:
    QRect textPlace(const QStyleOptionViewItem &option) const;
    void paintIconBox(QPainter &painter, const QRect &box) const;
    void paintTexts(QPainter &painter, const QRect &place, Qt::LayoutDirection direction) const;
};

} // namespace clipwren
