#include "ui/downloader/TrimSection.h"

#include "ui/components/Animation.h"
#include "ui/components/Button.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Switch.h"
#include "ui/downloader/FilmStrip.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/downloader/TimeField.h"
#include "ui/downloader/TrimSlider.h"
#include "workflow/download/DownloaderView.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace clipwren {

namespace {

constexpr double choiceSpring = 0.25;
constexpr int spacing = 14;
constexpr int statSpacing = 16;
constexpr int stripSpacing = 4;

/// The time of the frame that is shown, in seconds, rounded down to the milliseconds that ffmpeg is
/// given: rounded up, the clip would begin with the next frame.
double shownSeconds(const MediaPlayer &player)
{
    constexpr double tolerance = 1e-3; // of the product
    return std::floor(player.positionSeconds() * 1000 + tolerance) / 1000;
}

/// Width by height of the film's pictures, which is the same in all its formats.
std::optional<double> aspectRatioOf(const VideoInfo &info)
{
    for (const VideoFormat &each : info.formats.value_or(QList<VideoFormat>())) {
        if (carriesVideo(each) && each.width.value_or(0) > 0 && each.height.value_or(0) > 0)
            return static_cast<double>(*each.width) / static_cast<double>(*each.height);
    }
    return std::nullopt;
}

} // namespace

TrimSection::TrimSection(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_switch(new Switch(tr("Trim before saving"), u"scissors"))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_switch);
    connect(m_switch, &Switch::clicked, &m_view, [this](bool on) {
        m_isToBeOpened = on;
        m_view.setTrimEnabled(on);
    });

    m_choice = new QWidget;
    auto *choice = new QVBoxLayout(m_choice);
    choice->setContentsMargins(0, spacing, 0, 0);
    choice->setSpacing(spacing);
    m_preview = new PreviewPane(m_view);
    choice->addWidget(m_preview);
    choice->addLayout(makeTimeline());
    choice->addLayout(makeControls());

    auto *content = new QWidget;
    auto *contentColumn = new QVBoxLayout(content);
    contentColumn->setContentsMargins(0, 0, 0, 0);
    contentColumn->addWidget(m_choice);
    m_choice->hide();
    m_choiceArea = new AnimatedHeight(content);
    connect(m_choiceArea, &AnimatedHeight::settled, this, &TrimSection::settled);
    column->addWidget(m_choiceArea);
}

QLayout *TrimSection::makeTimeline()
{
    m_slider = new TrimSlider;
    connect(m_slider, &TrimSlider::rangeChanged, &m_view,
            [this](const TrimRange &range) { m_view.setTrimRange(range.start, range.end); });
    connect(m_slider, &TrimSlider::scrubbed, &m_view.preview(), &PreviewPlayerController::seek);
    connect(m_slider, &TrimSlider::adjustingChanged, this, &TrimSection::renderRange);
    m_strip = new FilmStrip(m_view.makeBackgroundPlayer());
    m_strip->hide();
    connect(m_strip, &FilmStrip::failed, this, &TrimSection::renderStrip);

    auto *underTrack = new QHBoxLayout;
    constexpr int inset = static_cast<int>(TrimGeometry::knobSize) / 2;
    underTrack->setContentsMargins(inset, 0, inset, 0);
    underTrack->addWidget(m_strip);
    auto *timeline = new QVBoxLayout;
    timeline->setSpacing(stripSpacing);
    timeline->addWidget(m_slider);
    timeline->addLayout(underTrack);
    return timeline;
}

QLayout *TrimSection::makeControls()
{
    m_play = new Button(Button::Style::Bordered, tr("Play Clip"), u"play.fill");
    m_play->setToolTip(tr("Play from start to end (Shift+Space). Space plays and pauses, comma and "
                          "full stop step by one frame."));
    connect(m_play, &Button::clicked, this, &TrimSection::playClip);
    auto *resetButton = new Button(Button::Style::Borderless, tr("Reset"));
    connect(resetButton, &Button::clicked, this, &TrimSection::reset);
    // A click leaves the keyboard to the section: the next Space plays and pauses.
    for (QWidget *control : std::initializer_list<QWidget *>{m_switch, m_play, resetButton})
        control->setFocusPolicy(Qt::TabFocus);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(tr("Trim"));

    auto *row = new FlowRow(statSpacing);
    row->addLayout(makeStats());
    row->addWidget(m_play);
    row->addWidget(resetButton);
    return row;
}

QLayout *TrimSection::makeStats()
{
    m_start = new TimeStat(tr("Start"),
                           tr("Click to type where the clip starts. The key I starts "
                              "it at the picture shown."));
    m_end = new TimeStat(tr("End"),
                         tr("Click to type where the clip ends. The key O ends it at "
                            "the picture shown."));
    m_clip = new TimeStat(tr("Clip"));
    for (const auto &[stat, handle] : {std::pair(m_start, TrimSlider::Handle::start),
                                       std::pair(m_end, TrimSlider::Handle::end)}) {
        connect(stat->field(), &TimeField::committed, this,
                [this, handle = handle](double seconds) {
                    // The field also loses the focus when the video is reset.
                    if (m_view.info())
                        m_slider->moveHandle(handle, seconds);
                });
        // Arrow keys then continue from the typed time.
        connect(stat->field(), &TimeField::finished, this,
                [this, handle = handle] { m_slider->focusHandle(handle); });
    }
    auto *stats = new QHBoxLayout;
    // The room for tenths is a part of it.
    stats->setSpacing(std::max(statSpacing - TimeField::tenthsRoom(), 0));
    for (TimeStat *stat : {m_start, m_end, m_clip})
        stats->addWidget(stat);
    stats->addStretch(1);
    return stats;
}

QRect TrimSection::previewAndSlider() const
{
    if (m_choice->isHidden())
        return {};
    const QRect both = m_preview->geometry() | m_slider->geometry();
    return {m_choice->mapTo(this, both.topLeft()), both.size()};
}

bool TrimSection::pressKey(const QKeyEvent &event)
{
    static constexpr struct {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        bool repeats;
        void (*run)(TrimSection &);
    } keys[] = {
        {Qt::Key_I, Qt::NoModifier, false, [](TrimSection &s) { s.startHere(); }},
        {Qt::Key_O, Qt::NoModifier, false, [](TrimSection &s) { s.endHere(); }},
        {Qt::Key_Comma, Qt::NoModifier, true, [](TrimSection &s) { s.step(-1); }},
        {Qt::Key_Period, Qt::NoModifier, true, [](TrimSection &s) { s.step(1); }},
        {Qt::Key_Space, Qt::NoModifier, false, [](TrimSection &s) { s.togglePlaying(); }},
        {Qt::Key_Space, Qt::ShiftModifier, false, [](TrimSection &s) { s.playClip(); }},
    };
    const PreviewPlayerController &preview = m_view.preview();
    if (!m_choice->isVisible() || !preview.player() || preview.isLoading())
        return false;
    for (const auto &[key, modifier, repeats, run] : keys) {
        if (event.key() != key || event.modifiers() != modifier)
            continue;
        if (repeats || !event.isAutoRepeat())
            run(*this);
        return true;
    }
    return false;
}

void TrimSection::startHere()
{
    const double here = shownSeconds(*m_view.preview().player());
    TrimRange range{m_view.trimStart(), m_view.trimEnd()};
    // Beyond the end of the clip, start a new one.
    if (here > range.end - minimumHandleGapSeconds)
        range.end = duration();
    range = withStart(range, here);
    m_view.setTrimRange(range.start, range.end);
}

void TrimSection::endHere()
{
    const double here = shownSeconds(*m_view.preview().player());
    TrimRange range{m_view.trimStart(), m_view.trimEnd()};
    if (here < range.start + minimumHandleGapSeconds)
        range.start = 0;
    range = withEnd(range, here, duration());
    m_view.setTrimRange(range.start, range.end);
}

void TrimSection::step(int frames)
{
    m_view.preview().endRange();
    m_view.preview().player()->step(frames);
}

void TrimSection::togglePlaying()
{
    MediaPlayer *player = m_view.preview().player();
    if (player->isPlaying())
        player->pause();
    else
        player->play();
}

void TrimSection::playClip()
{
    m_view.preview().playRange(m_view.trimStart(), m_view.trimEnd());
}

void TrimSection::reset()
{
    m_slider->setRange({0, duration()}, TrimSlider::Motion::Animate);
    m_view.resetTrim();
}

double TrimSection::duration() const
{
    const std::optional<VideoInfo> info = m_view.info();
    return info ? info->duration.value_or(0) : 0;
}

void TrimSection::render()
{
    m_switch->setChecked(m_view.trimEnabled());
    const bool canChoose = m_view.trimEnabled() && duration() > 0;
    if (canChoose) {
        m_slider->setDuration(duration());
        renderRange();
        m_preview->render();
        renderStrip();
    } else {
        m_strip->setFilm(std::nullopt);
    }
    if (canChoose == m_choice->isHidden()) {
        if (canChoose && m_isToBeOpened)
            Q_EMIT opened();
        m_choiceArea->change(choiceSpring, [&] { m_choice->setVisible(canChoose); });
    }
    m_isToBeOpened = false;
}

void TrimSection::renderRange()
{
    const TrimRange range{m_view.trimStart(), m_view.trimEnd()};
    m_slider->setRange(range);
    for (TimeStat *stat : {m_start, m_end})
        stat->field()->setShowsTenths(m_slider->isAdjusting());
    m_start->setSeconds(range.start);
    m_end->setSeconds(range.end);
    m_clip->setSeconds(std::max(range.end - range.start, 0.0));
    PreviewPlayerController &preview = m_view.preview();
    m_play->setSymbol(preview.isPlaying() ? Icon(u"pause.fill") : Icon(u"play.fill"));
    m_play->setEnabled(preview.player() != nullptr);
}

void TrimSection::renderStrip()
{
    const std::optional<QUrl> stream = m_view.previewURL();
    if (stream)
        m_strip->setFilm(FilmStrip::Film{*stream, duration(),
                                         aspectRatioOf(m_view.info().value_or(VideoInfo()))});
    else
        m_strip->setFilm(std::nullopt);
    m_strip->setRange({m_view.trimStart(), m_view.trimEnd()});
    // Reserve its room before the first picture.
    const bool shows = m_view.makeBackgroundPlayer() && (stream || m_view.isPreviewLoading())
        && !m_strip->hasFailed();
    if (shows != m_strip->isHidden())
        return;
    if (m_choice->isHidden())
        m_strip->setVisible(shows);
    else
        m_choiceArea->change(choiceSpring, [&] { m_strip->setVisible(shows); });
}

} // namespace clipwren
