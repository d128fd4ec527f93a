#include "ui/shell/TopBar.h"

#include "ui/components/Button.h"
#include "ui/components/DetailScreen.h"
#include "ui/components/Label.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

namespace clipwren {
namespace {

constexpr int barHeight = 52;

} // namespace

TopBar::TopBar(QMenu &menu, QWidget *parent)
    : QWidget(parent), m_sidebar(Button::iconOnly(u"sidebar.left", tr("Show or Hide Sidebar"))),
      m_title(new Label(Label::Mode::Elided, Theme::TextStyle::BarTitle)),
      m_buttons(new QHBoxLayout)
{
    setFixedHeight(barHeight);
    connect(m_sidebar, &Button::clicked, this, &TopBar::sidebarToggled);
    auto *more = Button::iconOnly(u"ellipsis.circle", tr("Menu"));
    connect(more, &Button::clicked, this, [&menu, more] {
        menu.popup(
            more->mapToGlobal(QPoint(more->width() - menu.sizeHint().width(), more->height() + 4)));
    });

    for (Button *button : {m_sidebar, more})
        button->setSize(Button::Size::Large);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(14, 0, 14, 1);
    row->setSpacing(6);
    row->addWidget(m_sidebar);
    row->addWidget(m_title, 1);
    m_buttons->setSpacing(0);
    row->addLayout(m_buttons);
    row->addWidget(more);
}

void TopBar::setScreen(DetailScreen *screen)
{
    if (m_screen)
        disconnect(m_screen, nullptr, this, nullptr);
    while (QLayoutItem *item = m_buttons->takeAt(0)) {
        // Return the buttons to the screen that owns and deletes them.
        if (m_screen)
            item->widget()->setParent(m_screen);
        item->widget()->hide();
        delete item;
    }
    m_screen = screen;
    if (!screen) {
        m_title->setText({});
        return;
    }
    const auto showTitle = [this] { m_title->setText(m_screen->barTitle()); };
    connect(screen, &DetailScreen::barTitleChanged, this, showTitle);
    showTitle();
    QWidget *before = m_sidebar;
    for (Button *button : screen->barButtons()) {
        button->setSize(Button::Size::Large);
        m_buttons->addWidget(button);
        button->show();
        // Set the tab order to reading order, as these buttons come last.
        setTabOrder(before, button);
        before = button;
    }
}

void TopBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const Theme &theme = Theme::current();
    painter.fillRect(rect(), theme.color(Theme::Color::Bar));
    painter.fillRect(QRect(0, height() - 1, width(), 1), theme.color(Theme::Color::Separator));
}

} // namespace clipwren
