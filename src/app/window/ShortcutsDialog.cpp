#include "app/window/ShortcutsDialog.h"

#include "ui/components/Label.h"
#include "ui/components/ScrollPane.h"

#include <QEvent>
#include <QGridLayout>
#include <QKeySequence>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace clipwren {
namespace {

/// The dialog's margins, heading, button and frame.
constexpr QSize aroundGroups(100, 240);

struct Shortcut {
    QList<QKeySequence> keys;
    QString action;
};

struct Group {
    QString title;
    QList<Shortcut> shortcuts;
};

QList<Group> windowGroups()
{
    return {
        {ShortcutsDialog::tr("Window"),
         {{{Qt::Key_F10}, ShortcutsDialog::tr("Open the menu")},
          {{Qt::Key_F9}, ShortcutsDialog::tr("Show or hide the sidebar")},
          {{QKeySequence::Find}, ShortcutsDialog::tr("Filter the list by title")},
          {{Qt::Key_F1, Qt::CTRL | Qt::Key_Question}, ShortcutsDialog::tr("Show these shortcuts")},
          {{QKeySequence::Quit}, ShortcutsDialog::tr("Quit")}}},
        {ShortcutsDialog::tr("New download"),
         {{{QKeySequence::Paste, Qt::CTRL | Qt::SHIFT | Qt::Key_V},
           ShortcutsDialog::tr("Look up the address on the clipboard")},
          {{Qt::CTRL | Qt::Key_Return}, ShortcutsDialog::tr("Download")},
          {{Qt::CTRL | Qt::Key_R}, ShortcutsDialog::tr("Look for the tools again")}}},
        {ShortcutsDialog::tr("Lists"),
         {{{Qt::Key_Return}, ShortcutsDialog::tr("Show the file; in History: download it again")},
          {{Qt::Key_Menu, Qt::SHIFT | Qt::Key_F10}, ShortcutsDialog::tr("Open the row's menu")},
          {{Qt::Key_Delete}, ShortcutsDialog::tr("Remove from Recent")},
          {{QKeySequence::Undo}, ShortcutsDialog::tr("Bring the removed one back")}}},
    };
}

QList<Group> videoGroups()
{
    return {
        {ShortcutsDialog::tr("Trimming"),
         {{{Qt::Key_I}, ShortcutsDialog::tr("Start here")},
          {{Qt::Key_O}, ShortcutsDialog::tr("End here")},
          {{Qt::Key_Comma, Qt::Key_Period}, ShortcutsDialog::tr("One picture back, forward")},
          {{Qt::Key_Space}, ShortcutsDialog::tr("Play or pause")},
          {{Qt::SHIFT | Qt::Key_Space}, ShortcutsDialog::tr("Play the clip")}}},
        {ShortcutsDialog::tr("Player"),
         {{{Qt::Key_Space}, ShortcutsDialog::tr("Play or pause")},
          {{Qt::Key_Left, Qt::Key_Right}, ShortcutsDialog::tr("Back, forward")},
          {{Qt::Key_Up, Qt::Key_Down}, ShortcutsDialog::tr("Louder, quieter")},
          {{Qt::Key_M}, ShortcutsDialog::tr("Mute")},
          {{Qt::Key_F}, ShortcutsDialog::tr("Full screen")}}},
    };
}

/// As in "Ctrl+F", in the user's language; of one or two.
QString keysText(const QList<QKeySequence> &keys)
{
    const QString first = keys.first().toString(QKeySequence::NativeText);
    return keys.size() == 1 ? first
                            : ShortcutsDialog::tr("%1 or %2")
                                  .arg(first, keys.last().toString(QKeySequence::NativeText));
}

QLayout *makeColumn(const QList<Group> &groups)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(6);
    for (const Group &group : groups) {
        if (grid->count() > 0)
            grid->setRowMinimumHeight(grid->rowCount(), 10);
        grid->addWidget(
            new Label(Theme::TextStyle::SectionHeader, Theme::Color::Secondary, group.title),
            grid->rowCount(), 0, 1, 2);
        for (const Shortcut &each : group.shortcuts) {
            const int row = grid->rowCount();
            grid->addWidget(new Label(Theme::TextStyle::Body, Theme::Color::Text, each.action), row,
                            0);
            grid->addWidget(
                new Label(Theme::TextStyle::Label, Theme::Color::Secondary, keysText(each.keys)),
                row, 1);
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

} // namespace

ShortcutsDialog::ShortcutsDialog(QWidget *parent)
    : InformationDialog(tr("Keyboard Shortcuts"), tr("Keyboard Shortcuts"), 16, parent),
      m_content(new QWidget), m_groups(new QHBoxLayout(m_content)),
      m_pane(new ScrollPane(m_content, QWIDGETSIZE_MAX))
{
    m_groups->setSpacing(40);
    m_groups->addLayout(makeColumn(windowGroups()));
    m_groups->addLayout(makeColumn(videoGroups()));
    m_pane->setFocusPolicy(Qt::StrongFocus);
    column()->addWidget(m_pane);
    fitToScreen();

    addCloseButton();
}

/// The texts may be as large as the desktop can ask for.
void ShortcutsDialog::fitToScreen()
{
    const QSize room = screen()->availableSize() - aroundGroups;
    m_groups->setContentsMargins(0, 0, 0, 0);
    m_groups->setDirection(QBoxLayout::LeftToRight);
    if (m_content->sizeHint().width() > room.width())
        m_groups->setDirection(QBoxLayout::TopToBottom);
    // A scroll bar lies over the content.
    if (m_content->sizeHint().height() > room.height())
        m_groups->setContentsMargins(0, 0, style()->pixelMetric(QStyle::PM_ScrollBarExtent), 0);
    m_pane->setMinimumSize(m_content->sizeHint().boundedTo(room));
}

void ShortcutsDialog::changeEvent(QEvent *event)
{
    InformationDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitToScreen();
}

} // namespace clipwren
