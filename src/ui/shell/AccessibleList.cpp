#include "ui/shell/AccessibleList.h"

#include "ui/components/Menu.h"
#include "ui/shell/LibraryListModel.h"
#include "ui/shell/LibraryListView.h"

#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QHash>

#include <memory>

namespace clipwren {
namespace {

class AccessibleItem : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleItem(LibraryListView &list, const QModelIndex &index) : m_list(list), m_index(index)
    {
    }

    int row() const { return m_index.row(); }

    bool isValid() const override { return m_index.isValid(); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_list);
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_index.data(Qt::AccessibleTextRole).toString()
                                         : QString();
    }
    void setText(QAccessible::Text, const QString &) override { }
    QRect rect() const override
    {
        const QRect place = m_list.visualRect(m_index);
        return {m_list.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = m_list.hasFocus() && m_list.currentIndex() == m_index;
        state.selectable = m_list.selectionMode() != QAbstractItemView::NoSelection;
        state.selected = m_list.selectionModel()->isSelected(m_index);
        const QRect seen = m_list.viewport()->rect() & m_list.visualRect(m_index);
        state.invisible = !m_list.isVisible();
        state.offscreen = seen.isEmpty();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }
    QStringList actionNames() const override
    {
        if (!m_index.isValid())
            return {};
        QStringList names{pressAction(), showMenuAction(), setFocusAction()};
        // A menu that is open is not among the windows that assistive tools can walk through.
        const std::unique_ptr<Menu> menu(m_list.makeMenu(m_index));
        for (const QAction *entry : menu->actions()) {
            if (entry->isEnabled() && !entry->isSeparator())
                names << entry->text();
        }
        return names;
    }
    void doAction(const QString &name) override
    {
        if (!m_index.isValid())
            return;
        m_list.selectionModel()->setCurrentIndex(m_index, QItemSelectionModel::NoUpdate);
        if (name == pressAction())
            Q_EMIT m_list.returnPressed(m_index);
        else if (name == showMenuAction())
            m_list.openMenuByKey(m_index);
        else if (name == setFocusAction())
            m_list.setFocus(Qt::OtherFocusReason);
        else
            chooseFromMenu(name);
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    void chooseFromMenu(const QString &text)
    {
        const std::unique_ptr<Menu> menu(m_list.makeMenu(m_index));
        for (QAction *entry : menu->actions()) {
            if (entry->text() == text) {
                entry->trigger();
                return;
            }
        }
    }

    LibraryListView &m_list;
    QPersistentModelIndex m_index;
};

/// The first child is the viewport with the header in it, then follow the items: the numbers are
/// those of the rows, by which Qt tells what is focused and selected.
class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(LibraryListView &list)
        : QAccessibleWidget(&list, QAccessible::List), m_list(list)
    {
    }
    AccessibleList(const AccessibleList &) = delete;
    AccessibleList &operator=(const AccessibleList &) = delete;
    ~AccessibleList() override
    {
        for (const QAccessible::Id id : std::as_const(m_items))
            QAccessible::deleteAccessibleInterface(id);
    }

    // The first is asked for before the list has its model.
    int childCount() const override { return m_list.model() ? m_list.model()->rowCount() : 0; }
    QAccessibleInterface *child(int row) const override
    {
        if (row < LibraryListModel::firstItem)
            return row < 0 ? nullptr : QAccessible::queryAccessibleInterface(m_list.viewport());
        if (row >= childCount())
            return nullptr;
        if (const auto known = m_items.constFind(row); known != m_items.constEnd()) {
            // Items move when others come and go above them.
            if (auto *item = QAccessible::accessibleInterface(*known); rowOf(item) == row)
                return item;
            QAccessible::deleteAccessibleInterface(*known);
        }
        auto *item = new AccessibleItem(m_list, m_list.model()->index(row, 0));
        m_items.insert(row, QAccessible::registerAccessibleInterface(item));
        return item;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child->object() == m_list.viewport() ? 0 : rowOf(child);
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QModelIndex index = m_list.indexAt(m_list.viewport()->mapFromGlobal(QPoint(x, y)));
        return index.isValid() ? child(index.row()) : nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_list.hasFocus() && m_list.currentIndex().isValid()
            ? child(m_list.currentIndex().row())
            : QAccessibleWidget::focusChild();
    }

private:
    /// -1 for what is no item any more.
    static int rowOf(const QAccessibleInterface *item)
    {
        const auto *known = dynamic_cast<const AccessibleItem *>(item);
        return known ? known->row() : -1;
    }

    LibraryListView &m_list;
    mutable QHash<int, QAccessible::Id> m_items; ///< those that were asked for, by row
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const list = qobject_cast<LibraryListView *>(object);
    return list ? new AccessibleList(*list) : nullptr;
}

} // namespace

void installAccessibleList()
{
    // Qt takes the same factory only once.
    QAccessible::installFactory(makeAccessible);
}

} // namespace clipwren
