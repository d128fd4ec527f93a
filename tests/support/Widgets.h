#pragma once

#include <QStringList>
#include <QWidget>

class QAbstractItemView;
class QMenu;

/// A window found one's way about by what a user sees and does.
namespace clipwren::test {

/// Shows a view as the active window.
void showWindow(QWidget &view);

/// What is read on a widget or, where there is nothing to read, said of it.
QString nameOf(const QWidget &widget);
/// The names of all labels and buttons that show when the root does.
QStringList shownTexts(const QWidget &root);
bool shows(const QWidget &root, const QString &text);
/// The texts of labels, buttons and fields that have less room than they need, but for what ends in
/// an ellipsis by design.
QStringList cutOffTexts(const QWidget &root);
/// The widget of that kind and name that shows when the root does. Null when there is none.
template <typename Widget> Widget *shown(const QWidget &root, const QString &name)
{
    for (Widget *widget : root.findChildren<Widget *>()) {
        if (widget->isVisibleTo(&root) && nameOf(*widget) == name)
            return widget;
    }
    return nullptr;
}
/// The names of all that Tab leads to, from this widget on until it comes round.
QStringList tabStops(QWidget &first);

/// Opens the menu of a list's row as the pointer does.
void openRowMenu(QAbstractItemView &list, int row);
/// The menu that is open. Throws when none is.
QMenu &openMenu();
/// Its items as "text", "(text)" when disabled and "-" for a line.
QStringList itemsOf(const QMenu &menu);
/// Chooses an item of the open menu, which closes it.
void chooseFromMenu(const QString &item);

} // namespace clipwren::test
