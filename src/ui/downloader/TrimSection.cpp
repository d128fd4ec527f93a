#include "ui/downloader/TrimSection.h"

#include "ui/components/Button.h"
#include "ui/components/Glide.h"
#include "ui/components/Switch.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/downloader/TimeField.h"
#include "ui/downloader/TimeStat.h"
#include "ui/downloader/TrimSlider.h"
#include "workflow/download/DownloaderView.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace clipwren {

namespace {

constexpr Spring choiceSpring{0.25, 1};
constexpr int spacing = 14;
constexpr int statSpacing = 16;

} // namespace

TrimSection::TrimSection(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_switch(new Switch(tr("Trim before saving"), u"scissors"))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_switch);
    connect(m_switch, &Switch::clicked, &m_view, &DownloaderView::setTrimEnabled);

    m_choice = new QWidget;
    auto *choice = new QVBoxLayout(m_choice);
    choice->setContentsMargins(0, spacing, 0, 0);
    choice->setSpacing(spacing);
    m_preview = new PreviewPane(m_view);
    m_slider = new TrimSlider;
    choice->addWidget(m_preview);
    choice->addWidget(m_slider);
    choice->addLayout(makeControls());
    connect(m_slider, &TrimSlider::rangeChanged, &m_view,
            [this](const TrimRange &range) { m_view.setTrimRange(range.start, range.end); });
    connect(m_slider, &TrimSlider::scrubbed, &m_view.preview(), &PreviewPlayerController::seek);
    connect(m_slider, &TrimSlider::adjustingChanged, this, &TrimSection::renderRange);

    auto *content = new QWidget;
    auto *contentColumn = new QVBoxLayout(content);
    contentColumn->setContentsMargins(0, 0, 0, 0);
    contentColumn->addWidget(m_choice);
    m_choice->hide();
    m_choiceGlide = new Glide(content);
    column->addWidget(m_choiceGlide);
}

QLayout *TrimSection::makeControls()
{
    m_play = new Button(Button::Style::Bordered, tr("Play Clip"), u"play.fill");
    connect(m_play, &Button::clicked, this, &TrimSection::playClip);
    auto *resetButton = new Button(Button::Style::Borderless, tr("Reset"));
    connect(resetButton, &Button::clicked, this, &TrimSection::reset);

    auto *row = new QHBoxLayout;
    row->setSpacing(statSpacing);
    row->addLayout(makeStats());
    row->addStretch(1);
    row->addWidget(m_play);
    row->addWidget(resetButton);
    return row;
}

QLayout *TrimSection::makeStats()
{
    m_start = new TimeStat(tr("Start"), tr("Click to type where the clip starts."));
    m_end = new TimeStat(tr("End"), tr("Click to type where the clip ends."));
    m_clip = new TimeStat(tr("Clip"));
    for (const auto &[stat, handle] : {std::pair(m_start, TrimSlider::Handle::start),
                                       std::pair(m_end, TrimSlider::Handle::end)}) {
        connect(stat->field(), &TimeField::committed, this, [this, handle](double seconds) {
            // One that is left because the video goes changes nothing any more.
            if (m_view.info())
                m_slider->moveHandle(handle, seconds);
        });
        // Where arrow keys go on from what was typed.
        connect(stat->field(), &TimeField::finished, this,
                [this, handle] { m_slider->focusHandle(handle); });
    }
    auto *stats = new QHBoxLayout;
    // Tenths come within it.
    stats->setSpacing(std::max(statSpacing - TimeField::tenthsRoom(), 0));
    for (TimeStat *stat : {m_start, m_end, m_clip})
        stats->addWidget(stat);
    return stats;
}

void TrimSection::playClip()
{
    m_view.preview().playRange(m_view.trimStart(), m_view.trimEnd());
}

void TrimSection::reset()
{
    const std::optional<VideoInfo> info = m_view.info();
    m_slider->setRange({0, info ? info->duration.value_or(0) : 0}, TrimSlider::Motion::Glide);
    m_view.resetTrim();
}

void TrimSection::render()
{
    m_switch->setChecked(m_view.trimEnabled());
    const std::optional<VideoInfo> info = m_view.info();
    const double duration = info ? info->duration.value_or(0) : 0;
    const bool canChoose = m_view.trimEnabled() && duration > 0;
    if (canChoose) {
        m_slider->setDuration(duration);
        renderRange();
        m_preview->render();
    }
    if (canChoose == m_choice->isHidden())
        m_choiceGlide->change(choiceSpring, [&] { m_choice->setVisible(canChoose); });
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

} // namespace clipwren
