#include "ui/downloader/TrimSlider.h"

#include "core/text/Duration.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/Slider.h"
#include "ui/components/Theme.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace clipwren {

namespace {

constexpr double trackHeight = TrimGeometry::trackHeight;
constexpr double knobSize = TrimGeometry::knobSize;
constexpr double outline = 2.5;
constexpr double draggedScale = 1.12;
// Seconds of response.
constexpr double scaleSpring = 0.15;
constexpr double glideSpring = 0.5;
constexpr double shadowRadius = 2;

constexpr double arrowSeconds = 0.1;
constexpr double shiftedArrowSeconds = 1;
constexpr double pageSeconds = 10;

/// One end of the range as the keyboard and assistive tools see it: a slider over the whole
/// duration. The trim slider paints it and takes the mouse for it.
class TrimHandle : public Slider {
public:
    TrimHandle(const QString &name, QWidget *parent) : Slider(name, {1000, formatDuration}, parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(int(knobSize), int(knobSize));
        setSteps(arrowSeconds, pageSeconds);
        FocusRing::install(this, knobSize / 2);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) {
            event->ignore();
            return;
        }
        const bool shifted = event->modifiers() & Qt::ShiftModifier;
        setSteps(shifted ? shiftedArrowSeconds : arrowSeconds, pageSeconds);
        Slider::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent *) override { }
};

void paintKnobShadow(QPainter &painter, const QRectF &knob)
{
    const QColor black = Theme::current().color(Theme::Color::Shadow);
    const QPointF middle = knob.center() + QPointF(0, 1);
    const double reach = knob.width() / 2 + shadowRadius;
    QRadialGradient blur(middle, reach);
    blur.setColorAt(0, black);
    blur.setColorAt(1 - 2 * shadowRadius / reach, black);
    blur.setColorAt(1, Qt::transparent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blur);
    painter.drawEllipse(middle, reach, reach);
}

} // namespace

double TrimGeometry::trackWidth() const
{
    return std::max(width - knobSize, 1.0);
}

double TrimGeometry::handleX(double seconds) const
{
    return trackWidth() * (seconds / duration);
}

double TrimGeometry::timeAt(double pointerX) const
{
    const double place = std::clamp(pointerX - knobSize / 2, 0.0, trackWidth());
    // A duration that ends on no tenth is still to be reached.
    if (place == trackWidth())
        return duration;
    return toTenths(duration * (place / trackWidth()));
}

TrimRange withStart(const TrimRange &range, double seconds)
{
    // A range shorter than the gap would push the start below 0.
    const double start = std::min(std::max(seconds, 0.0), range.end - minimumHandleGapSeconds);
    return {std::max(start, 0.0), range.end};
}

TrimRange withEnd(const TrimRange &range, double seconds, double duration)
{
    return {range.start,
            std::max(std::min(seconds, duration), range.start + minimumHandleGapSeconds)};
}

double toTenths(double seconds)
{
    return std::round(seconds * 10) / 10;
}

TrimSlider::TrimSlider(QWidget *parent)
    : QWidget(parent), m_start{new TrimHandle(tr("Start"), this),
                               {glideSpring, 0, [this](double) { placeHandles(); }},
                               {scaleSpring, 1, [this](double) { update(); }}},
      m_end{new TrimHandle(tr("End"), this),
            {glideSpring, 1, [this](double) { placeHandles(); }},
            {scaleSpring, 1, [this](double) { update(); }}}
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    for (const Handle handle : {Handle::start, Handle::end}) {
        Slider *slider = knob(handle).handle;
        slider->setLargestValue(m_duration);
        slider->installEventFilter(this);
        connect(slider, &Slider::valueRequested, this, [this, handle, slider](double seconds) {
            setMovedByKeys(slider->hasFocus());
            // A duration that ends on no tenth is still to be reached.
            moveHandle(handle, seconds < m_duration ? toTenths(seconds) : m_duration);
        });
    }
}

QSize TrimSlider::sizeHint() const
{
    return {320, static_cast<int>(TrimGeometry::height)};
}

QSize TrimSlider::minimumSizeHint() const
{
    return {static_cast<int>(knobSize) * 3, static_cast<int>(TrimGeometry::height)};
}

void TrimSlider::setDuration(double seconds)
{
    if (!(seconds > 0) || std::isinf(seconds) || seconds == m_duration)
        return;
    m_duration = seconds;
    m_start.handle->setLargestValue(seconds);
    m_end.handle->setLargestValue(seconds);
    m_start.handle->showValue(m_range.start);
    m_end.handle->showValue(m_range.end);
    placeHandles();
}

void TrimSlider::setRange(const TrimRange &range, Motion motion)
{
    const bool differs = std::exchange(m_range, range) != range;
    // Also without a difference, where a handle was asked to go further than it may.
    m_start.handle->showValue(range.start);
    m_end.handle->showValue(range.end);
    if (!differs)
        return;
    for (const auto &[knob, seconds] :
         {std::pair(&m_start, range.start), std::pair(&m_end, range.end)}) {
        if (motion == Motion::Animate && isVisible())
            knob->seconds.moveTo(seconds);
        else
            knob->seconds.jumpTo(seconds);
    }
}

// Geometry

QRectF TrimSlider::knobRect(const Knob &knob) const
{
    return {geometryNow().handleX(knob.seconds.position()), (height() - knobSize) / 2, knobSize,
            knobSize};
}

TrimSlider::Handle TrimSlider::handleNear(double x) const
{
    const double middle = (knobRect(m_start).center().x() + knobRect(m_end).center().x()) / 2;
    return x < middle ? Handle::start : Handle::end;
}

bool TrimSlider::isOnKnob(const QPointF &point) const
{
    const QMarginsF reach(0, height(), 0, height());
    return knobRect(m_start).marginsAdded(reach).contains(point)
        || knobRect(m_end).marginsAdded(reach).contains(point);
}

void TrimSlider::placeHandles()
{
    for (const Knob *knob : {&m_start, &m_end})
        knob->handle->move(knobRect(*knob).toAlignedRect().topLeft());
    update();
}

// Moving

void TrimSlider::moveHandle(Handle handle, double seconds)
{
    if (std::isnan(seconds))
        return;
    setRange(handle == Handle::start ? withStart(m_range, seconds)
                                     : withEnd(m_range, seconds, m_duration));
    Q_EMIT rangeChanged(m_range);
    Q_EMIT scrubbed(handle == Handle::start ? m_range.start : m_range.end, handle);
}

void TrimSlider::focusHandle(Handle handle)
{
    knob(handle).handle->setFocus(Qt::OtherFocusReason);
}

void TrimSlider::setMovedByKeys(bool moved)
{
    if (std::exchange(m_movedByKeys, moved) != moved)
        Q_EMIT adjustingChanged();
}

bool TrimSlider::eventFilter(QObject *watched, QEvent *event)
{
    // The filter is installed on the handles alone.
    if (event->type() == QEvent::FocusOut)
        setMovedByKeys(false);
    return QWidget::eventFilter(watched, event);
}

void TrimSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_dragging = handleNear(event->position().x());
    m_movedByKeys = false;
    Q_EMIT adjustingChanged();
    knob(*m_dragging).handle->setFocus(Qt::MouseFocusReason);
    knob(*m_dragging).scale.moveTo(draggedScale);
    setCursor(Qt::ClosedHandCursor);
    mouseMoveEvent(event);
}

void TrimSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging)
        moveHandle(*m_dragging, geometryNow().timeAt(event->position().x()));
    else
        hover(event->position());
}

void TrimSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    endDrag();
    hover(event->position());
}

void TrimSlider::endDrag()
{
    if (!m_dragging)
        return;
    knob(*m_dragging).scale.moveTo(1);
    m_dragging.reset();
    Q_EMIT adjustingChanged();
}

void TrimSlider::hover(const QPointF &point)
{
    m_hovered = isOnKnob(point) ? std::optional(handleNear(point.x())) : std::nullopt;
    if (m_hovered)
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
    update();
}

void TrimSlider::leaveEvent(QEvent *)
{
    m_hovered.reset();
    update();
}

void TrimSlider::hideEvent(QHideEvent *)
{
    // A hidden widget gets no mouse release.
    endDrag();
    m_hovered.reset();
}

void TrimSlider::resizeEvent(QResizeEvent *)
{
    placeHandles();
}

// Painting

void TrimSlider::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const double top = (height() - trackHeight) / 2;
    paintBox(painter, QRectF(knobSize / 2, top, width() - knobSize, trackHeight), trackHeight / 2,
             theme.color(Theme::Color::Quaternary));

    const double from = knobRect(m_start).center().x();
    const double to = std::max(knobRect(m_end).center().x(), from);
    const QColor accent = theme.color(Theme::Color::Accent);
    QLinearGradient gradient(from, 0, to, 0);
    gradient.setColorAt(0, faded(accent, 0.85));
    gradient.setColorAt(1, accent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    const double radius = std::min(trackHeight, to - from) / 2;
    painter.drawRoundedRect(QRectF(from, top, to - from, trackHeight), radius, radius);

    paintKnob(painter, Handle::start);
    paintKnob(painter, Handle::end);
}

void TrimSlider::paintKnob(QPainter &painter, Handle handle) const
{
    const Theme &theme = Theme::current();
    const Knob &knob = handle == Handle::start ? m_start : m_end;
    const double side = knobSize * knob.scale.position();
    QRectF rect(0, 0, side, side);
    rect.moveCenter(knobRect(knob).center());
    paintKnobShadow(painter, rect);
    paintBox(painter, rect, side / 2, theme.color(Theme::Color::Knob));
    if (m_dragging == handle || (!m_dragging && m_hovered == handle))
        paintBox(painter, rect, side / 2, faded(theme.color(Theme::Color::Accent), 0.15));
    const double inside = outline / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.color(Theme::Color::Accent), outline));
    painter.drawEllipse(rect.adjusted(inside, inside, -inside, -inside));
}

} // namespace clipwren
