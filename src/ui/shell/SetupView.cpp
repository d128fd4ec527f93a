#include "ui/shell/SetupView.h"

#include "core/process/ToolEnvironment.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/ScrollPane.h"

#include <QHBoxLayout>
#include <QShortcut>

#include <algorithm>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

constexpr int blockWidth = 480;
constexpr int explanationWidth = 420;
constexpr int sideMargin = 32;
constexpr int topMargin = 60;
constexpr int spacing = 20;
// The least of them, in a low window.
constexpr int leastMargin = 12;
constexpr int leastSpacing = 10;
constexpr int betweenElements = 5;
constexpr int dividerInset = 36;

const QString installCommand = u"brew install yt-dlp ffmpeg"_s;

} // namespace

/// One tool: whether it was found, where, and in which version.
class SetupView::StatusRow : public QWidget {
public:
    explicit StatusRow(const QString &name);

    void display(const ToolEnvironment::Tool &tool);

private:
    IconView *m_icon;
    Label *m_path;
    Label *m_version;
};

SetupView::StatusRow::StatusRow(const QString &name)
    : m_icon(new IconView(u"circle.dashed", 18, Theme::Color::Secondary)),
      m_path(new Label(Label::Mode::Elided, Theme::TextStyle::MonospacedCaption,
                       Theme::Color::Secondary)),
      m_version(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Tertiary))
{
    m_path->setElideMode(Qt::ElideMiddle);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(new Label(Theme::TextStyle::Emphasis, Theme::Color::Text, name));
    texts->addWidget(m_path);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 12, 16, 12);
    row->setSpacing(12);
    row->addWidget(m_icon);
    row->addLayout(texts, 1);
    row->addWidget(m_version);
}

void SetupView::StatusRow::display(const ToolEnvironment::Tool &tool)
{
    m_icon->setIcon(tool.path ? Icon(u"checkmark.circle.fill") : Icon(u"circle.dashed"));
    m_icon->setColor(tool.path ? Theme::Color::Green : Theme::Color::Secondary);
    m_path->setText(tool.path.value_or(SetupView::tr("Not installed")));
    m_version->setText(tool.version.value_or(QString()));
    m_version->setVisible(tool.version.has_value());
}

SetupView::SetupView(ToolEnvironment &tools, Desktop &desktop, QWidget *parent)
    : DetailScreen(parent), m_tools(tools), m_desktop(desktop)
{
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(new ScrollPane(makeStack(), blockWidth + 2 * sideMargin));
    // A shortcut of the window: works wherever the keyboard focus is.
    auto *recheck = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_R), this);
    // Ignore auto-repeat: each check starts the tools to read their versions.
    recheck->setAutoRepeat(false);
    connect(recheck, &QShortcut::activated, &m_tools, &ToolEnvironment::refresh);
    connect(&m_tools, &ToolEnvironment::changed, this, &SetupView::render);
    render();
}

QWidget *SetupView::makeStack()
{
    auto *explanation =
        new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout, Theme::Color::Secondary);
    explanation->setMarkdown(tr("Clipwren uses **yt-dlp** to download and **ffmpeg** to trim. "
                                "Install them from Homebrew, then click *Re-check*."));
    explanation->setAlignment(Qt::AlignHCenter);
    constexpr int inset = (blockWidth - explanationWidth) / 2;
    explanation->setContentsMargins(inset, 0, inset, 0);

    auto *content = new QWidget;
    auto *stack = m_stack = new QVBoxLayout(content);
    stack->addStretch(1);
    stack->addWidget(new IconView(u"wrench.and.screwdriver", 44, Theme::Color::Accent), 0,
                     Qt::AlignHCenter);
    stack->addSpacing(4);
    auto *heading = new Label(Label::Mode::Paragraph, Theme::TextStyle::Heading, Theme::Color::Text,
                              tr("One-time setup"));
    heading->setAlignment(Qt::AlignHCenter);
    stack->addWidget(heading);
    stack->addWidget(explanation);
    stack->addWidget(makeStatusBox());
    stack->addWidget(makeInstallBlock());
    stack->addWidget(makeRecheckButton(), 0, Qt::AlignHCenter);
    stack->addStretch(1);
    return content;
}

void SetupView::resizeEvent(QResizeEvent *event)
{
    m_stack->setContentsMargins(sideMargin, topMargin, sideMargin, 0);
    m_stack->setSpacing(spacing);
    const int needed = m_stack->totalHeightForWidth(width()) + leastMargin;
    if (needed > height()) {
        // Keep "Re-check" in view in the lowest window, too.
        constexpr double spare =
            topMargin - leastMargin + betweenElements * (spacing - leastSpacing);
        const double share = std::min(1.0, (needed - height()) / spare);
        const auto shrunk = [share](int most, int least) {
            return static_cast<int>(most - share * (most - least));
        };
        m_stack->setContentsMargins(sideMargin, shrunk(topMargin, leastMargin), sideMargin,
                                    leastMargin);
        m_stack->setSpacing(shrunk(spacing, leastSpacing));
    }
    DetailScreen::resizeEvent(event);
}

QWidget *SetupView::makeStatusBox()
{
    auto *box = new Card;
    auto *rows = new QVBoxLayout(box);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    for (const ToolEnvironment::Tool &tool : m_tools.tools()) {
        if (!m_rows.isEmpty())
            rows->addWidget(new Divider(dividerInset));
        m_rows.append(new StatusRow(tool.name));
        rows->addWidget(m_rows.last());
    }
    return box;
}

QWidget *SetupView::makeInstallBlock()
{
    auto *command = new Label(Theme::TextStyle::MonospacedBody, Theme::Color::Text, installCommand);
    command->setSelectable(true);
    auto *copy = Button::iconOnly(u"doc.on.doc", tr("Copy command"));
    copy->setSize(Button::Size::Small);
    connect(copy, &Button::clicked, this, [this] { m_desktop.setClipboardText(installCommand); });

    auto *box = new Card(Theme::Color::Quaternary, 8);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(12, 8, 8, 8);
    row->addWidget(command);
    row->addStretch(1);
    row->addWidget(copy);

    auto *block = new QWidget;
    auto *column = new QVBoxLayout(block);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(new Label(Theme::TextStyle::Caption, Theme::Color::Secondary,
                                tr("Install with Homebrew:")));
    column->addWidget(box);
    return block;
}

Button *SetupView::makeRecheckButton()
{
    auto *button = new Button(Button::Style::Prominent, tr("Re-check"), u"arrow.clockwise");
    button->setSize(Button::Size::Large);
    setFocusProxy(button);
    connect(button, &Button::clicked, &m_tools, &ToolEnvironment::refresh);
    return button;
}

void SetupView::render()
{
    for (qsizetype index = 0; index < m_rows.size(); ++index)
        m_rows[index]->display(m_tools.tools()[static_cast<std::size_t>(index)]);
}

} // namespace clipwren
