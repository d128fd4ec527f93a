#include "ui/components/Menu.h"

#include "ui/components/Theme.h"

#include <QStyleOptionMenuItem>

namespace clipwren {

Menu::Menu(QWidget *parent) : QMenu(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
}

QAction *Menu::addDestructiveAction(const QString &text)
{
    QAction *action = addAction(text);
    m_destructive.insert(action);
    return action;
}

void Menu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    if (!isDestructive(action) || !action->isEnabled())
        return;
    const QColor red = Theme::current().color(Theme::Color::Red);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        option->palette.setColor(role, red);
}

} // namespace clipwren
