#pragma once

#include "ui/shell/DetailContainer.h"
#include "ui/shell/Selection.h"
#include "ui/shell/SidebarView.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class QHBoxLayout;
class QMenu;
class QSplitter;

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
    void openMenu();

Q_SIGNALS:
    void sidebarToggled();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QMenu &m_menu;
    QPointer<DetailScreen> m_screen;
    Button *m_sidebar;
    Label *m_title;
    QHBoxLayout *m_buttons;
    Button *m_more;
};

class ConfirmationDialog;
class TopBar;

/// The content of the window: the sidebar on the left, the detail pane under its bar on the right,
/// and what ties them together.
class ContentView : public QWidget {
    Q_OBJECT

public:
    /// What is given must outlive the view.
    explicit ContentView(const ApplicationContext &context, QWidget *parent = nullptr);

    /// Leaves the selected record for the downloader and looks an address up there. Asks first
    /// while a download runs, which that would stop.
    void lookUp(const QString &address);
    /// Leaves the selected record for the downloader; a download that runs there goes on.
    void showDownloader();
    /// Shows the sidebar with the field that filters its list.
    void filterList();
    void toggleSidebar();
    bool isSidebarHidden() const;
    /// In logical pixels; also while it is hidden.
    int sidebarWidth() const { return m_sidebarWidth; }
    /// Bounded to what the sidebar can have.
    void setSidebarWidth(int width);

    /// The application's menu. Comes with the item for the sidebar.
    QMenu &menu() { return *m_menu; }
    /// Which saved file is shown, and highlighted in the list.
    Selection &selection() { return m_selection; }
    SidebarView &sidebar() { return *m_sidebar; }
    DetailContainer &detail() { return *m_detail; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    /// Selects a record or none. Asks first while a download runs, which that would stop.
    void requestSelection(const std::optional<QUuid> &id);
    void redownload(const QString &address);
    void askToStop(const QString &confirm, const QString &message, std::function<void()> action);
    void showScreen();

    ApplicationContext m_context;
    Selection m_selection;
    QMenu *m_menu;
    SidebarView *m_sidebar;
    DetailContainer *m_detail;
    TopBar *m_bar;
    QSplitter *m_columns;
    int m_sidebarWidth;
    QPointer<ConfirmationDialog> m_question; // there while it is shown
};

} // namespace clipwren
