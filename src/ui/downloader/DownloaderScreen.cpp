#include "ui/downloader/DownloaderScreen.h"

#include "platform/desktop/Desktop.h"
#include "ui/components/Animation.h"
#include "ui/components/Banner.h"
#include "ui/components/Button.h"
#include "ui/components/Label.h"
#include "ui/components/ScrollPane.h"
#include "ui/downloader/AddressField.h"
#include "ui/downloader/FormatSection.h"
#include "ui/downloader/LogViewer.h"
#include "ui/downloader/ProgressSection.h"
#include "ui/downloader/TitleField.h"
#include "ui/downloader/TrimSection.h"
#include "ui/downloader/VideoCards.h"
#include "workflow/download/DownloaderView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace clipwren {

namespace {

constexpr int padding = 28;
constexpr int spacing = 24;
constexpr int widestColumn = 720;
constexpr int scrollMargin = 12; // around what is brought into view
constexpr std::chrono::milliseconds layoutTime(100); // layouts follow each other in the event loop

/// How the cards of a phase come, if not at once.
std::optional<double> springTo(Phase phase, Phase from)
{
    switch (phase) {
    case Phase::input:
        return std::nullopt;
    case Phase::ready:
        // No animation when a failed download leads back here.
        return from == Phase::confirming ? std::optional(0.25) : std::nullopt;
    case Phase::fetching:
    case Phase::downloading:
    case Phase::processing:
        return 0.2;
    case Phase::confirming:
    case Phase::done:
        return 0.25;
    }
    return std::nullopt;
}

} // namespace

DownloaderScreen::DownloaderScreen(DownloaderView &view, Desktop &desktop,
                                   const QString &downloadFolder, QWidget *parent)
    : DetailScreen(parent), m_view(view), m_desktop(desktop), m_downloadFolder(downloadFolder),
      m_folderButton(Button::iconOnly(u"folder", tr("Open Downloads Folder")))
{
    m_folderButton->setToolTip(tr("Reveal the Clipwren downloads folder in Finder"));
    connect(m_folderButton, &Button::clicked, this, &DownloaderScreen::revealFolder);
    makeColumn();
    makeShortcuts();
    setFocusProxy(m_address);
    m_renderTimer.setSingleShot(true);
    connect(&m_renderTimer, &QTimer::timeout, this, &DownloaderScreen::render);
    connect(&m_view, &DownloaderView::changed, this, &DownloaderScreen::scheduleRender);
    connect(&m_view.preview(), &PreviewPlayerController::changed, this,
            &DownloaderScreen::scheduleRender);
    render();
}

DownloaderScreen::~DownloaderScreen()
{
    // Reparented to the bar and to the window.
    delete m_folderButton;
    delete m_logs;
}

QList<Button *> DownloaderScreen::barButtons() const
{
    return {m_folderButton};
}

void DownloaderScreen::makeColumn()
{
    m_column = new QWidget;
    auto *rows = new QVBoxLayout(m_column);
    rows->setContentsMargins(padding, padding, padding, padding);
    // Optional rows bring the space above them as a margin of their own.
    rows->setSpacing(0);
    rows->addLayout(makeHeader());
    rows->addSpacing(spacing);
    m_address = new AddressField(m_view);
    rows->addWidget(m_address);
    auto *cards = new QWidget;
    m_cardRows = new QVBoxLayout(cards);
    m_cardRows->setContentsMargins(0, spacing, 0, 0);
    m_cardRows->setSpacing(spacing);
    m_cards = new AnimatedHeight(cards);
    rows->addWidget(m_cards);
    m_errorPlace = new QVBoxLayout;
    rows->addLayout(m_errorPlace);
    rows->addStretch(1);

    m_scroll = new ScrollPane(m_column, widestColumn);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_scroll);
}

QLayout *DownloaderScreen::makeHeader()
{
    auto *header = new QVBoxLayout;
    header->setSpacing(6);
    header->addWidget(new Label(Label::Mode::Paragraph, Theme::TextStyle::Title, Theme::Color::Text,
                                tr("Download a video")));
    auto *hint =
        new Label(Label::Mode::Wrapped, Theme::TextStyle::Callout, Theme::Color::Secondary);
    hint->setText(tr("Paste a YouTube link. We'll fetch the video, you confirm it's the right "
                     "one, then pick a format."));
    header->addWidget(hint);
    return header;
}

void DownloaderScreen::makeCards()
{
    m_fetching = new FetchingCard(m_view);
    m_confirmation = new ConfirmationCard(m_view);
    m_summary = new VideoSummary(m_view);
    m_title = new TitleField(m_view);
    m_format = new FormatSection(m_view);
    m_trim = new TrimSection(m_view);
    connect(m_trim, &TrimSection::opened, this, &DownloaderScreen::followTrim);
    m_download = makeDownloadRow();
    m_progress = new ProgressSection(m_view);
    m_success = makeSuccessCard(m_view, m_downloadFolder, [this] { revealFolder(); });

    for (QWidget *card :
         std::initializer_list<QWidget *>{m_fetching, m_confirmation, m_summary, m_title, m_format,
                                          m_trim, m_download, m_progress, m_success}) {
        m_cardRows->addWidget(card);
        card->hide();
    }
    // Made last, so that it comes last in the tab order.
    m_errorPlace->addWidget(makeError());
}

QWidget *DownloaderScreen::makeDownloadRow()
{
    auto *download =
        new Button(Button::Style::Prominent, tr("Download"), u"arrow.down.circle.fill");
    download->setSize(Button::Size::Large);
    download->setToolTip(tr("Start the download (Ctrl+Return)"));
    connect(download, &Button::clicked, &m_view, &DownloaderView::start);
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    row->addWidget(download);
    return box;
}

QWidget *DownloaderScreen::makeError()
{
    m_error = new Banner;
    m_error->setDismissible(true);
    m_errorLogs = m_error->addButton(tr("View Logs"), u"terminal");
    connect(m_errorLogs, &Button::clicked, &m_view, &DownloaderView::showErrorLog);
    connect(m_error, &Banner::dismissed, &m_view, &DownloaderView::dismissErrorMessage);
    m_errorRow = new QWidget;
    auto *rows = new QVBoxLayout(m_errorRow);
    rows->setContentsMargins(0, spacing, 0, 0);
    rows->addWidget(m_error);
    m_errorRow->hide();
    return m_errorRow;
}

void DownloaderScreen::makeShortcuts()
{
    m_pasteShortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V), this);
    connect(m_pasteShortcut, &QShortcut::activated, &m_view, &DownloaderView::paste);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, &m_view, &DownloaderView::start);
        m_downloadShortcuts.append(shortcut);
    }
}

void DownloaderScreen::showEvent(QShowEvent *event)
{
    DetailScreen::showEvent(event);
    if (!std::exchange(m_acceptsRequests, true))
        m_view.acceptRequests();
}

void DownloaderScreen::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier) && !event->isAutoRepeat();
    // In the address field, Return starts a look-up instead.
    if (isReturn && isPlain && m_view.phase() == Phase::confirming && !m_address->isEdited())
        m_view.confirm();
    else if (!m_trim || !m_trim->pressKey(*event))
        DetailScreen::keyPressEvent(event);
}

void DownloaderScreen::revealFolder()
{
    m_desktop.reveal(m_downloadFolder);
}

// Rendering

void DownloaderScreen::render()
{
    const Phase phase = m_view.phase();
    const Phase before = std::exchange(m_phase, phase);
    const QWidget *focus = QApplication::focusWidget();
    const bool hadFocus = focus && isAncestorOf(focus);
    // When the focused widget is disabled or hidden, Qt moves the focus to the next one in the tab
    // order, and the next Return would press that.
    if (phase != before && hadFocus)
        m_column->setFocus(Qt::OtherFocusReason);
    m_address->render();
    if (phase == before)
        renderCards();
    else
        m_cards->change(springTo(phase, before), [this] { renderCards(); });
    if (phase != before) {
        m_cards->setAccessibleName(headingOf(phase));
        placeFocus(hadFocus);
        announcePhase(hadFocus);
    }
    const auto failure = m_view.fetchError();
    if (std::exchange(m_fetchError, failure) != failure && failure)
        m_desktop.announce(m_view.withOutdatedHint(*failure));
    m_pasteShortcut->setEnabled(!isBusy(phase));
    for (QShortcut *shortcut : m_downloadShortcuts)
        shortcut->setEnabled(phase == Phase::ready);
    renderError();
    renderLogs();
    if (const QString title = windowTitleText(); std::exchange(m_windowTitle, title) != title)
        Q_EMIT titleChanged();
}

QString DownloaderScreen::windowTitleText() const
{
    const bool isRunning = m_phase == Phase::downloading || m_phase == Phase::processing;
    return isRunning ? tr("%1 – %2").arg(m_progress->percentage(), barTitle()) : barTitle();
}

void DownloaderScreen::renderCards()
{
    const Phase phase = m_view.phase();
    if (m_cardRows->count() == 0) {
        if (phase == Phase::input)
            return;
        makeCards();
    }
    const bool hasInfo = m_view.info().has_value();
    const bool isReady = phase == Phase::ready;
    const bool isRunning = phase == Phase::downloading || phase == Phase::processing;
    const bool isDone = phase == Phase::done;
    const auto show = [](auto *card, bool shown) {
        // Rendered before it is shown, so that it never appears with old texts.
        if constexpr (requires { card->render(); }) {
            if (shown)
                card->render();
        }
        card->setVisible(shown);
    };
    show(m_fetching, phase == Phase::fetching);
    show(m_confirmation, phase == Phase::confirming && hasInfo);
    show(m_summary, (isReady || isRunning || isDone) && hasInfo);
    show(m_title, isReady);
    show(m_format, isReady);
    show(m_trim, isReady && !traits(m_view.outputFormat()).isAudioOnly);
    show(m_download, isReady);
    show(m_progress, isRunning);
    show(m_success, isDone);
}

void DownloaderScreen::placeFocus(bool hadFocus)
{
    // Return is to confirm the video, wherever the focus was.
    if (m_phase == Phase::confirming && m_confirmation->isVisible())
        m_confirmation->continueButton()->setFocus(Qt::OtherFocusReason);
    else if (hadFocus && m_phase == Phase::input)
        m_address->setFocus(Qt::OtherFocusReason);
    else if (hadFocus)
        m_cards->setFocus(Qt::OtherFocusReason);
}

void DownloaderScreen::announcePhase(bool hadFocus)
{
    // Where the focus is at the cards, their name tells the phase; the end is notified of.
    if (m_phase == Phase::confirming)
        m_desktop.announce(m_view.info()->title.value_or(QString()));
    else if (!hadFocus && m_phase != Phase::input && m_phase != Phase::done)
        m_desktop.announce(headingOf(m_phase));
}

QString DownloaderScreen::headingOf(Phase phase) const
{
    switch (phase) {
    case Phase::input:
    case Phase::confirming:
        break;
    case Phase::fetching:
        return tr("Looking up video…");
    case Phase::ready:
        return tr("Download options");
    case Phase::downloading:
    case Phase::processing:
        return m_view.phaseLabel();
    case Phase::done:
        return tr("Download complete");
    }
    return {};
}

void DownloaderScreen::renderError()
{
    if (!m_error)
        return;
    const std::optional<QString> message = m_view.errorMessage();
    if (message)
        m_error->setMessage(m_view.withOutdatedHint(*message));
    m_errorLogs->setVisible(m_view.errorLog().has_value());
    const bool appears = message && m_errorRow->isHidden();
    m_errorRow->setVisible(message.has_value());
    // Scrolls there once the layout has placed it.
    if (appears)
        QTimer::singleShot(0, m_errorRow, [this] { m_scroll->ensureWidgetVisible(m_errorRow); });
}

void DownloaderScreen::followTrim()
{
    // Each step of the animation changes the scroll range, the last one after it has ended.
    const auto following = connect(m_scroll->verticalScrollBar(), &QScrollBar::rangeChanged, this,
                                   &DownloaderScreen::scrollToTrim);
    const auto endSoon = [this, following] {
        QTimer::singleShot(layoutTime, this, [following] { disconnect(following); });
    };
    connect(m_trim, &TrimSection::settled, this, endSoon, Qt::SingleShotConnection);
}

void DownloaderScreen::scrollToTrim()
{
    const QRect needed = m_trim->previewAndSlider();
    if (needed.isNull())
        return;
    const int top = m_trim->mapTo(m_column, needed.topLeft()).y();
    const int bottom = m_download->mapTo(m_column, m_download->rect().bottomLeft()).y() + 1;
    const int room = m_scroll->viewport()->height();
    QScrollBar *bar = m_scroll->verticalScrollBar();
    // Scrolls no further than necessary; what does not fit is cut off at the bottom.
    const int spare = room - (bottom - top);
    const int margin = std::clamp(spare / 2, 0, scrollMargin);
    if (spare >= 0)
        bar->setValue(std::clamp(bar->value(), bottom + margin - room, top - margin));
    else
        bar->setValue(top);
}

void DownloaderScreen::scheduleRender()
{
    // Rendered at once while hidden, so that it is up to date when it is shown.
    if (isVisible())
        m_renderTimer.start();
    else
        render();
}

void DownloaderScreen::renderLogs()
{
    if (m_view.showLogs() && !m_logs) {
        const ToolLog &log = m_view.shownLog();
        m_logs = new LogViewer(
            log.tool.isEmpty() ? tr("Details") : tr("%1 output").arg(log.tool), log.text,
            [this] { m_view.setShowLogs(false); }, window());
        m_logs->open();
    } else if (!m_view.showLogs() && m_logs) {
        m_logs->hide();
        m_logs->deleteLater();
        m_logs.clear();
    }
}

} // namespace clipwren
