#include "support/Widgets.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>
#include <stdexcept>

namespace clipwren::test {

using namespace Qt::StringLiterals;

void showWindow(QWidget &view)
{
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
}

QString nameOf(const QWidget &widget)
{
    // Qt takes no constant one, though it only reads.
    auto *seen = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(&widget));
    return seen->text(QAccessible::Name);
}

QStringList shownTexts(const QWidget &root)
{
    QStringList texts;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        const bool speaks =
            qobject_cast<const QLabel *>(widget) || qobject_cast<const QAbstractButton *>(widget);
        if (speaks && widget->isVisibleTo(&root) && !nameOf(*widget).isEmpty())
            texts << nameOf(*widget);
    }
    return texts;
}

bool shows(const QWidget &root, const QString &text)
{
    return shownTexts(root).contains(text);
}

QStringList tabStops(QWidget &first)
{
    QStringList stops;
    first.setFocus();
    do {
        stops << nameOf(*QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (!stops.contains(nameOf(*QApplication::focusWidget())));
    return stops;
}

void openRowMenu(QAbstractItemView &list, int row)
{
    const QPoint place = list.visualRect(list.model()->index(row, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &event);
}

QMenu &openMenu()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        throw std::runtime_error("no menu is open");
    return *menu;
}

QStringList itemsOf(const QMenu &menu)
{
    QStringList items;
    for (const QAction *action : menu.actions()) {
        items << (action->isSeparator()     ? u"-"_s
                      : action->isEnabled() ? action->text()
                                            : u'(' + action->text() + u')');
    }
    return items;
}

void chooseFromMenu(const QString &item)
{
    QMenu &menu = openMenu();
    for (QAction *action : menu.actions()) {
        if (action->text() != item)
            continue;
        EXPECT_TRUE(action->isEnabled()) << item.toStdString();
        menu.setActiveAction(action);
        QTest::keyClick(&menu, Qt::Key_Return);
        return;
    }
    throw std::runtime_error("no such item: " + item.toStdString());
}

} // namespace clipwren::test
