#include "ui/shell/DownloadDetailView.h"

#include "core/Error.h"
#include "core/media/FfmpegService.h"
#include "core/process/ToolEnvironment.h"
#include "core/text/BoundedText.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/ScrollPane.h"
#include "ui/player/SafeVideoPlayer.h"
#include "ui/shell/InformationBox.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QShowEvent>

#include <utility>

namespace clipwren {

namespace {

constexpr int columnWidth = 760;
constexpr int columnPadding = 28;
constexpr int playerHeight = 320;
// ffprobe may write megabytes about a broken file; to lay them out would block the window.
constexpr qsizetype longestError = 2'000;

/// A column or a part of it, without margins of its own.
QVBoxLayout *blocks(int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

} // namespace

DownloadDetailView::DownloadDetailView(const DownloadRecord &record, const ToolEnvironment &tools,
                                       Desktop &desktop, MediaPlayerFactory makePlayer,
                                       QWidget *parent)
    : DetailScreen(parent), m_record(record), m_tools(tools), m_desktop(desktop),
      m_makePlayer(std::move(makePlayer)), m_reveal(Button::iconOnly(u"folder", tr("Reveal"))),
      m_open(Button::iconOnly(u"play.fill", tr("Open"))),
      m_title(new Label(Label::Mode::Paragraph, Theme::TextStyle::Heading)),
      m_address(new Label(Label::Mode::Elided, Theme::TextStyle::MonospacedCaption,
                          Theme::Color::Secondary)),
      m_media(blocks(0)), m_missing(missingPlaceholder()), m_pill(new Pill),
      m_facts(new InformationBox),
      m_folder(new Label(Label::Mode::Elided, Theme::TextStyle::MonospacedCaption,
                         Theme::Color::Secondary)),
      m_revealFolder(Button::iconOnly(u"folder", tr("Reveal in Finder"))),
      m_error(
          new Label(Label::Mode::Paragraph, Theme::TextStyle::Caption, Theme::Color::OrangeText))
{
    auto *all = blocks(0);
    m_pane = new ScrollPane(makeColumn(), columnWidth);
    all->addWidget(m_pane);
    setLayout(all);

    for (Button *button : {m_reveal.data(), m_revealFolder})
        connect(button, &Button::clicked, this, [this] { m_desktop.reveal(m_record.filePath); });
    connect(m_open, &Button::clicked, this, [this] { m_desktop.openFile(m_record.filePath); });
    checkFile();
    render();
}

DownloadDetailView::~DownloadDetailView()
{
    delete m_reveal;
    delete m_open;
}

void DownloadDetailView::setRecord(const DownloadRecord &record)
{
    if (record == m_record)
        return;
    if (record.id != m_record.id)
        m_pane->verticalScrollBar()->setValue(0);
    const bool isOtherFile = record.filePath != m_record.filePath;
    const bool isOtherTitle = record.title != m_record.title;
    m_record = record;
    if (isOtherFile)
        runInspection();
    render();
    if (isOtherTitle)
        Q_EMIT titleChanged();
}

QWidget *DownloadDetailView::makeColumn()
{
    for (Label *label : {m_title, m_address, m_folder})
        label->setSelectable(true);
    m_address->setElideMode(Qt::ElideMiddle);
    m_folder->setElideMode(Qt::ElideMiddle);
    m_error->setSelectable(true);
    m_revealFolder->setSize(Button::Size::Small);

    auto *header = blocks(6);
    auto *titleRow = new QHBoxLayout;
    titleRow->addWidget(m_title, 1);
    titleRow->addStretch(0);
    header->addLayout(titleRow);
    header->addWidget(m_address);
    m_media->addWidget(m_missing);
    auto *information = blocks(14);
    information->addLayout(makeInformationHeading());
    information->addWidget(m_facts);
    information->addLayout(makeLocation());
    information->addWidget(m_error);

    auto *content = new QWidget;
    auto *column = blocks(20);
    column->setContentsMargins(columnPadding, columnPadding, columnPadding, columnPadding);
    column->addLayout(header);
    column->addLayout(m_media);
    column->addLayout(information);
    column->addStretch(1);
    content->setLayout(column);
    return content;
}

QWidget *DownloadDetailView::missingPlaceholder()
{
    auto *card = new Card(Theme::Color::Card, 14);
    card->setMinimumHeight(220);
    auto *stack = new QVBoxLayout(card);
    stack->setSpacing(8);
    stack->addStretch(1);
    stack->addWidget(new IconView(u"questionmark.video", 38, Theme::Color::Secondary), 0,
                     Qt::AlignHCenter);
    auto *text = new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout,
                           Theme::Color::Secondary, tr("File no longer at expected location"));
    text->setAlignment(Qt::AlignHCenter);
    stack->addWidget(text);
    stack->addStretch(1);
    return card;
}

QLayout *DownloadDetailView::makeInformationHeading()
{
    auto *heading = new QHBoxLayout;
    heading->setSpacing(8);
    heading->addWidget(new IconView(u"info.circle", 16, Theme::Color::Secondary));
    heading->addWidget(
        new Label(Theme::TextStyle::Subheadline, Theme::Color::Text, tr("Information")));
    heading->addStretch(1);
    auto *row = new FlowRow(8);
    row->addLayout(heading);
    row->addWidget(m_pill);
    // Reserve the pill's room, so that nothing moves when it appears.
    QSizePolicy reserving = m_pill->sizePolicy();
    reserving.setRetainSizeWhenHidden(true);
    m_pill->setSizePolicy(reserving);
    return row;
}

QLayout *DownloadDetailView::makeLocation()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(m_folder);
    row->addWidget(m_revealFolder);
    row->addStretch(1);
    auto *location = blocks(4);
    location->addWidget(
        new Label(Theme::TextStyle::TrackedCaption, Theme::Color::Tertiary, tr("Location")));
    location->addLayout(row);
    return location;
}

bool DownloadDetailView::event(QEvent *event)
{
    // While another window was active, the file may have been moved or brought back.
    if (event->type() == QEvent::WindowActivate && isVisible()) {
        if (QFileInfo::exists(m_record.filePath) != m_fileExists) {
            runInspection();
            render();
        }
    }
    return DetailScreen::event(event);
}

void DownloadDetailView::showEvent(QShowEvent *event)
{
    // Restoring a minimised window inspects nothing again.
    if (event->spontaneous())
        return;
    runInspection();
    render();
}

void DownloadDetailView::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        m_inspecting = {};
}

void DownloadDetailView::checkFile()
{
    m_fileExists = QFileInfo::exists(m_record.filePath);
}

void DownloadDetailView::runInspection()
{
    m_inspecting = {};
    m_inspection.reset();
    m_inspectError.clear();
    checkFile();
    if (!isVisible() || !m_fileExists || !m_tools.ffmpegPath() || !m_tools.ffprobePath())
        return;
    const FfmpegService service{*m_tools.ffmpegPath(), *m_tools.ffprobePath()};
    m_inspecting = BackgroundTask::start(
        [service, path = m_record.filePath](const std::stop_token &stop,
                                            const BackgroundTask::Post &) {
            return service.inspect(path, stop);
        },
        [this](const MediaInspection &inspection) {
            m_inspection = inspection;
            render();
        },
        [this](const std::exception_ptr &failure) {
            try {
                std::rethrow_exception(failure);
            } catch (const std::exception &error) {
                m_inspectError = tr("Couldn't read file info: %1")
                                     .arg(boundedText(errorDescription(error), longestError));
            }
            render();
        });
}

void DownloadDetailView::render()
{
    setAccessibleName(m_record.title);
    m_title->setText(m_record.title);
    // A right-to-left title stays above the text below it: it is as wide as its text.
    m_title->setMaximumWidth(m_record.title.isRightToLeft()
                                 ? m_title->fontMetrics().horizontalAdvance(m_title->text()) + 1
                                 : QWIDGETSIZE_MAX);
    m_address->setText(m_record.sourceURL);
    renderPlayer();

    const auto verdict = m_inspection ? compatVerdict(*m_inspection) : std::nullopt;
    if (verdict)
        m_pill->display(verdict->tone, verdict->icon, verdict->text);
    m_pill->setVisible(verdict.has_value());
    m_facts->setFacts(recordFacts(m_record, m_inspection));
    m_folder->setText(QFileInfo(m_record.filePath).path());
    m_error->setText(m_inspectError);
    m_error->setVisible(!m_inspectError.isEmpty());
    for (Button *button : {m_reveal.data(), m_open.data(), m_revealFolder}) {
        if (button)
            button->setEnabled(m_fileExists);
    }
}

void DownloadDetailView::renderPlayer()
{
    if (m_fileExists && !m_player) {
        m_player = new SafeVideoPlayer(m_makePlayer, this);
        m_player->setFixedHeight(playerHeight);
        m_media->addWidget(m_player);
    }
    m_missing->setVisible(!m_fileExists);
    if (!m_player)
        return;
    m_player->setUrl(m_fileExists ? QUrl::fromLocalFile(m_record.filePath) : QUrl());
    m_player->setVisible(m_fileExists);
}

} // namespace clipwren
