#include "support/Widgets.h"

#include "ui/components/Label.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
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

namespace {

/// Whether its text has the room that it needs, lines and words included.
bool fits(const QWidget &widget)
{
    // By the font itself, as a size hint may leave it out.
    const auto *const button = qobject_cast<const QAbstractButton *>(&widget);
    const bool isSymbol = button && button->text().isEmpty();
    if (!isSymbol && widget.height() < widget.fontMetrics().height())
        return false;
    const auto *const label = qobject_cast<const Label *>(&widget);
    if (qobject_cast<const QLineEdit *>(&widget) || (label && label->isElided()))
        return true;
    if (!widget.hasHeightForWidth())
        return widget.width() >= widget.sizeHint().width()
            && widget.height() >= widget.sizeHint().height();
    return widget.width() >= widget.minimumSizeHint().width()
        && widget.height() >= widget.heightForWidth(widget.width());
}

/// Whether it lies within all that is around it; a page that scrolls is as high as it needs.
bool isInside(const QWidget &widget, const QWidget &root)
{
    bool scrolls = false;
    for (const QWidget *inner = &widget; inner != &root; inner = inner->parentWidget()) {
        const QWidget *const around = inner->parentWidget();
        const QRect place(widget.mapTo(around, QPoint()), widget.size());
        scrolls = scrolls || qobject_cast<const QAbstractScrollArea *>(around->parentWidget());
        if (place.left() < 0 || place.right() >= around->width()
            || (!scrolls && (place.top() < 0 || place.bottom() >= around->height())))
            return false;
    }
    return true;
}

} // namespace

QStringList cutOffTexts(const QWidget &root)
{
    QStringList texts;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        const bool hasText = qobject_cast<const QLabel *>(widget)
            || qobject_cast<const QAbstractButton *>(widget)
            || qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget);
        const bool isShown = widget->isVisibleTo(&root) && widget->window() == root.window();
        if (hasText && isShown && !(fits(*widget) && isInside(*widget, root)))
            texts << nameOf(*widget);
    }
    return texts;
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
