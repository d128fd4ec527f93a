#include "ui/shell/ContentView.h"

#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/ConfirmationDialog.h"
#include "ui/components/DetailScreen.h"
#include "ui/components/Label.h"
#include "ui/components/Theme.h"

#include <QAccessibleWidget>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QShortcut>
#include <QSplitter>
#include <QSplitterHandle>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;

TopBar::TopBar(QMenu &menu, QWidget *parent)
    : QWidget(parent), m_menu(menu),
      m_sidebar(Button::iconOnly(u"sidebar.left", tr("Show or Hide Sidebar"))),
      m_title(new Label(Label::Mode::Elided, Theme::TextStyle::BarTitle)),
      m_buttons(new QHBoxLayout), m_more(Button::iconOnly(u"ellipsis.circle", tr("Menu")))
{
    setFixedHeight(52);
    connect(m_sidebar, &Button::clicked, this, &TopBar::sidebarToggled);
    connect(m_more, &Button::clicked, this, &TopBar::openMenu);

    for (Button *button : {m_sidebar, m_more})
        button->setSize(Button::Size::Large);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(14, 0, 14, 1);
    row->setSpacing(6);
    row->addWidget(m_sidebar);
    row->addWidget(m_title, 1);
    m_buttons->setSpacing(0);
    row->addLayout(m_buttons);
    row->addWidget(m_more);
}

void TopBar::openMenu()
{
    m_menu.popup(m_more->mapToGlobal(
        QPoint(m_more->width() - m_menu.sizeHint().width(), m_more->height() + 4)));
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
    connect(screen, &DetailScreen::titleChanged, this, showTitle);
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

namespace {

constexpr QSize minimumWindowSize(820, 520);
constexpr int idealSidebarWidth = 280;
constexpr int maximumSidebarWidth = 360;

/// A line of one pixel between the columns. Qt takes the pointer some pixels beside it, too.
class ColumnHandle : public QSplitterHandle {
public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void paintEvent(QPaintEvent *) override
    {
        const Theme &theme = Theme::current();
        QPainter painter(this);
        const QRect line((width() - 1) / 2, 0, 1, height());
        painter.fillRect(line, theme.color(Theme::Color::Sidebar));
        painter.fillRect(line, theme.color(Theme::Color::Separator));
    }
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const handle = dynamic_cast<ColumnHandle *>(object);
    return handle ? new QAccessibleWidget(handle, QAccessible::Splitter,
                                          ContentView::tr("Width of the sidebar"))
                  : nullptr;
}

class Columns : public QSplitter {
public:
    using QSplitter::QSplitter;

protected:
    QSplitterHandle *createHandle() override { return new ColumnHandle(orientation(), this); }
};

bool looksLikeWebAddress(const QString &text)
{
    const QString address = text.trimmed();
    return address.startsWith("http://"_L1, Qt::CaseInsensitive)
        || address.startsWith("https://"_L1, Qt::CaseInsensitive);
}

/// The address in what is dragged; empty when there is none.
QString addressIn(const QMimeData &data)
{
    for (const QUrl &url : data.urls()) {
        if (looksLikeWebAddress(url.toString()))
            return url.toString(QUrl::FullyEncoded);
    }
    return looksLikeWebAddress(data.text()) ? data.text().trimmed() : QString();
}

} // namespace

ContentView::ContentView(const ApplicationContext &context, QWidget *parent)
    : QWidget(parent), m_context(context), m_menu(new QMenu(this)),
      m_sidebar(new SidebarView(context.store, context.history, context.tools, context.desktop,
                                m_selection, context.downloadDirectory)),
      m_detail(new DetailContainer(context, m_selection)), m_bar(new TopBar(*m_menu)),
      m_columns(new Columns(Qt::Horizontal)), m_sidebarWidth(idealSidebarWidth)
{
    setMinimumSize(minimumWindowSize);
    QAccessible::installFactory(makeAccessible);
    setAcceptDrops(true);
    QAction *sidebarItem = m_menu->addAction(tr("Show or Hide Sidebar"), QKeySequence(tr("F9")),
                                             this, &ContentView::toggleSidebar);
    sidebarItem->setAutoRepeat(false);
    QAction *filterItem =
        m_menu->addAction(tr("Filter List"), QKeySequence::Find, this, &ContentView::filterList);
    // Shortcuts of a menu that is not in a menu bar work only through the window.
    addActions({sidebarItem, filterItem});
    new QShortcut(Qt::Key_F10, this, [this] {
        m_bar->openMenu();
        m_menu->setActiveAction(m_menu->actions().constFirst());
    });

    auto *pane = new QWidget;
    auto *column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    column->addWidget(m_detail, 1);

    m_sidebar->setMaximumWidth(maximumSidebarWidth);
    m_columns->setHandleWidth(1);
    m_columns->setChildrenCollapsible(false);
    m_columns->addWidget(m_sidebar);
    m_columns->addWidget(pane);
    m_columns->setStretchFactor(1, 1);
    setSidebarWidth(idealSidebarWidth);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_columns);

    connect(m_columns, &QSplitter::splitterMoved, this,
            [this] { m_sidebarWidth = m_sidebar->width(); });
    connect(m_bar, &TopBar::sidebarToggled, this, &ContentView::toggleSidebar);
    connect(m_sidebar, &SidebarView::selectionRequested, this, &ContentView::requestSelection);
    connect(m_sidebar, &SidebarView::redownloadRequested, this, &ContentView::lookUp);
    connect(m_detail, &DetailContainer::completed, &m_selection, &Selection::select);
    connect(m_detail, &DetailContainer::screenChanged, this, &ContentView::showScreen);
    showScreen();
}

void ContentView::showScreen()
{
    // Another screen means that the download has ended: close the question.
    if (m_question)
        m_question->reject();
    DetailScreen *screen = m_detail->screen();
    m_bar->setScreen(screen);
    const auto showTitle = [this, screen] { setWindowTitle(screen->windowTitleText()); };
    connect(screen, &DetailScreen::titleChanged, this, showTitle);
    showTitle();
}

void ContentView::requestSelection(const std::optional<QUuid> &id)
{
    askToStop(tr("Stop and Show"), tr("A download is running. Showing a saved file stops it."),
              [this, id] { m_selection.select(id); });
}

void ContentView::redownload(const QString &address)
{
    m_selection.select(std::nullopt);
    m_context.pendingFetch.put({address});
}

void ContentView::lookUp(const QString &address)
{
    askToStop(tr("Stop and Look Up"),
              tr("A download is running. Looking up another video stops it."),
              [this, address] { redownload(address); });
}

void ContentView::showDownloader()
{
    m_selection.select(std::nullopt);
}

void ContentView::askToStop(const QString &confirm, const QString &message,
                            std::function<void()> action)
{
    // The latest request replaces the one that waits for an answer.
    if (m_question)
        m_question->reject();
    if (!m_detail->isDownloading()) {
        action();
        return;
    }
    m_question = new ConfirmationDialog(tr("Stop the Download?"), confirm, this);
    m_question->setMessage(message);
    connect(m_question, &ConfirmationDialog::accepted, this, std::move(action));
    m_question->open();
}

void ContentView::filterList()
{
    m_sidebar->show();
    m_sidebar->startFiltering();
}

void ContentView::toggleSidebar()
{
    m_sidebar->setVisible(m_sidebar->isHidden());
}

bool ContentView::isSidebarHidden() const
{
    return m_sidebar->isHidden();
}

void ContentView::setSidebarWidth(int width)
{
    m_sidebarWidth =
        std::max(std::min(width, maximumSidebarWidth), m_sidebar->minimumSizeHint().width());
    m_columns->setSizes(
        {m_sidebarWidth, std::max(m_columns->width(), minimumWindowSize.width()) - m_sidebarWidth});
}

void ContentView::keyPressEvent(QKeyEvent *event)
{
    // Text fields take this key themselves; it comes here from everything else. The clipboard is
    // another program's and may be slow, so no other key asks for it.
    const QString text =
        event->matches(QKeySequence::Paste) ? m_context.desktop.clipboardText() : QString();
    if (looksLikeWebAddress(text))
        lookUp(text.trimmed());
    else
        QWidget::keyPressEvent(event);
}

void ContentView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!addressIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void ContentView::dropEvent(QDropEvent *event)
{
    lookUp(addressIn(*event->mimeData()));
    event->acceptProposedAction();
}

} // namespace clipwren
