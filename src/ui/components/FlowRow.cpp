#include "ui/components/FlowRow.h"

#include "ui/components/Theme.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace clipwren {
namespace {

/// Of a first item that could do with less than its whole text.
constexpr int comfortableWidth = 160;

int leastWidth(const QLayoutItem &first)
{
    return std::max(first.minimumSize().width(),
                    std::min(first.sizeHint().width(), Theme::scaled(comfortableWidth)));
}

int heightAt(const QLayoutItem &item, int width)
{
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

} // namespace

FlowRow::FlowRow(int spacing, QWidget *parent) : QLayout(parent)
{
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowRow::~FlowRow()
{
    qDeleteAll(m_items);
}

void FlowRow::addLayout(QLayout *layout)
{
    addChildLayout(layout);
    addItem(layout);
}

void FlowRow::addItem(QLayoutItem *item)
{
    m_items.append(item);
    invalidate();
}

int FlowRow::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem *FlowRow::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *FlowRow::takeAt(int index)
{
    return index >= 0 && index < count() ? m_items.takeAt(index) : nullptr;
}

FlowRow::Arrangement FlowRow::arranged(int width) const
{
    if (m_items.isEmpty())
        return {};
    QList<QLayoutItem *> others;
    int room = width;
    for (QLayoutItem *item : m_items.mid(1)) {
        if (item->isEmpty())
            continue;
        others << item;
        room -= item->sizeHint().width() + spacing();
    }
    QLayoutItem *const first = m_items.constFirst();
    const bool inOneLine = room >= leastWidth(*first);

    Arrangement arrangement;
    QList<Placed> line;
    int x = 0;
    const auto endLine = [&] {
        const int top = arrangement.items.isEmpty() ? 0 : arrangement.height + spacing();
        int height = 0;
        for (const Placed &each : line)
            height = std::max(height, each.place.height());
        for (const Placed &each : line) {
            const int spare =
                each.item->alignment() & Qt::AlignTop ? 0 : (height - each.place.height()) / 2;
            arrangement.items.append(
                {each.item, each.place.translated(width - x + spacing(), top + spare)});
        }
        arrangement.height = top + height;
        x = 0;
        line.clear();
    };
    const auto add = [&](QLayoutItem *item, int itemWidth) {
        line.append({item, QRect(x, 0, itemWidth, heightAt(*item, itemWidth))});
        x += itemWidth + spacing();
    };
    add(first, inOneLine ? room : width);
    if (!inOneLine)
        endLine();
    for (QLayoutItem *item : others) {
        const int itemWidth = std::min(item->sizeHint().width(), width);
        if (x > 0 && x + itemWidth > width)
            endLine();
        add(item, itemWidth);
    }
    if (!line.isEmpty())
        endLine();
    return arrangement;
}

int FlowRow::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    return arranged(width - margins.left() - margins.right()).height + margins.top()
        + margins.bottom();
}

QSize FlowRow::sizeHint() const
{
    const QMargins margins = contentsMargins();
    int width = -spacing();
    for (const QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            width += item->sizeHint().width() + spacing();
    }
    width += margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

QSize FlowRow::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    }
    return size.grownBy(contentsMargins());
}

void FlowRow::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect inner = rect.marginsRemoved(contentsMargins());
    const Arrangement arrangement = arranged(inner.width());
    const QPoint corner =
        inner.topLeft() + QPoint(0, std::max(0, (inner.height() - arrangement.height) / 2));
    for (const Placed &each : arrangement.items)
        each.item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), inner,
                                                  each.place.translated(corner)));
}

} // namespace clipwren
