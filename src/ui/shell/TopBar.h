#pragma once

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QMenu;

namespace clipwren {

class Button;
class DetailScreen;
class Label;

/// The bar above the detail pane: the button for the sidebar, the screen's title and buttons, and
/// the application's menu.
class TopBar : public QWidget {
    Q_OBJECT

public:
    /// `menu` must outlive the bar.
    explicit TopBar(QMenu &menu, QWidget *parent = nullptr);

    /// Shows title and buttons of a screen in place of the ones of the screen before.
    void setScreen(DetailScreen *screen);

Q_SIGNALS:
    void sidebarToggled();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPointer<DetailScreen> m_screen;
    Button *m_sidebar;
    Label *m_title;
    QHBoxLayout *m_buttons;
};

} // namespace clipwren
