#include "app/window/MainWindow.h"

#include "app/window/AboutDialog.h"
#include "app/window/ShortcutsDialog.h"
#include "app/window/WindowPlacement.h"
#include "platform/media/PlayerModule.h"
#include "ui/components/TextLine.h"

#include <QAccessibleWidget>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

/// Screen readers look for windows; Qt takes only a QMainWindow for one.
QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const window = qobject_cast<MainWindow *>(object);
    return window ? new QAccessibleWidget(window, QAccessible::Window) : nullptr;
}

} // namespace

MainWindow::MainWindow(const ApplicationContext &context, PlayerModule &players)
    : m_tools(context.tools), m_preferences(context.preferences),
      m_content(new ContentView(context))
{
    QAccessible::installFactory(makeAccessible);
    setAttribute(Qt::WA_OpaquePaintEvent);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_content);
    restorePlacement(*this, *m_content, m_preferences);
    fillMenu();
    // A look-up is followed by a preview: the player loads while the tool is at it.
    const auto warmUpWithLookups = [this, &players] {
        if (DownloaderView *downloader = m_content->detail().downloader()) {
            connect(downloader, &DownloaderView::changed, this, [downloader, &players] {
                if (downloader->phase() == Phase::fetching)
                    players.warmUp();
            });
        }
    };
    connect(&m_content->detail(), &DetailContainer::screenChanged, this, warmUpWithLookups);
    warmUpWithLookups();
    connect(m_content, &QWidget::windowTitleChanged, this, &MainWindow::showTitle);
    showTitle();
    // Not at the sidebar's first button, nor in the address field, whose cursor would blink for
    // ever and which would keep a pasted address to itself.
    m_content->detail().setFocus(Qt::OtherFocusReason);
}

void MainWindow::showTitle()
{
    // By itself, it would stand for a mark of unsaved changes and not be shown.
    setWindowTitle(inOneLine(m_content->windowTitle()).replace(u"[*]"_s, u"[*][*]"_s));
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    rememberPlacement(*this, *m_content, m_preferences);
    QWidget::closeEvent(event);
}

void MainWindow::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), palette().window());
}

void MainWindow::fillMenu()
{
    QMenu &menu = m_content->menu();
    menu.addSeparator();
    QAction *shortcuts = menu.addAction(tr("Keyboard Shortcuts"));
    shortcuts->setShortcuts(
        {Qt::Key_F1, Qt::CTRL | Qt::Key_Question, Qt::CTRL | Qt::SHIFT | Qt::Key_Question});
    connect(shortcuts, &QAction::triggered, this,
            [this] { openDialog(new ShortcutsDialog(this)); });
    addAction(shortcuts);
    menu.addAction(tr("About Clipwren"), this,
                   [this] { openDialog(new AboutDialog(m_tools, this)); });
    menu.addSeparator();
    QAction *quit =
        menu.addAction(tr("Quit"), QKeySequence(QKeySequence::Quit), this, &QWidget::close);
    addAction(quit);
}

void MainWindow::openDialog(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void MainWindow::comeToFront(const InstanceMessage::Show &request)
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    // Where focus must not be taken unasked, this says that the user did ask. Qt takes it from here
    // only; no tool inherits it, whatever thread starts one now.
    if (!request.activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", request.activationToken.toUtf8());
    activateWindow();
    qunsetenv("XDG_ACTIVATION_TOKEN");
    if (!request.address.isEmpty())
        m_content->lookUp(request.address);
    else if (request.newDownload)
        m_content->showDownloader();
}

} // namespace clipwren
