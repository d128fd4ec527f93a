#pragma once

#include "core/media/TrimRange.h"
#include "ui/components/Animation.h"

#include <QWidget>

#include <cstdint>
#include <optional>

namespace clipwren {

class Slider;

/// Where the handles of a trim slider stand, and what time a place on it means.
///
/// Places are logical pixels from the slider's left edge, times seconds.
struct TrimGeometry {
    static constexpr double trackHeight = 6;
    static constexpr double knobSize = 18;
    static constexpr double height = knobSize + 8;

    double width; ///< of the whole slider; any
    double duration; ///< greater than 0

    /// The way that a handle can go; at least 1.
    double trackWidth() const;
    /// The left edge of the handle at a time.
    double handleX(double seconds) const;
    /// The time that a handle gets when its middle is dragged to a place: a whole tenth of a
    /// second, or the whole duration at the right end.
    double timeAt(double pointerX) const;
};

/// What the user leaves between the handles at least. A range set by the program may be shorter.
inline constexpr double minimumHandleGapSeconds = 0.1;

/// The range with its start moved towards a time, as far as its end lets it.
TrimRange withStart(const TrimRange &range, double seconds);
/// The range with its end moved towards a time, as far as its start and the duration let it.
TrimRange withEnd(const TrimRange &range, double seconds, double duration);

/// The nearest tenth of a second; halves away from zero.
double toTenths(double seconds);

/// Chooses the part of a video to keep, with a handle at each end.
///
/// Times are seconds. A handle is dragged, or moved by keys while it has focus: arrows by 0.1 s,
/// with Shift by 1 s, Page Up and Page Down by 10 s, Home and End as far as it goes. Time runs
/// from left to right in every language.
class TrimSlider : public QWidget {
    Q_OBJECT
public:
    enum class Handle : std::uint8_t { start, end };
    enum class Motion : std::uint8_t { Jump, Animate };

    explicit TrimSlider(QWidget *parent = nullptr);

    /// Greater than 0; anything else is ignored.
    void setDuration(double seconds);
    /// Shows a range, without signals. Its ends may lie closer than the user can bring them.
    void setRange(const TrimRange &range, Motion motion = Motion::Jump);
    TrimRange range() const { return m_range; }
    /// Moves a handle as the user does: as far as it can go, with signals.
    void moveHandle(Handle handle, double seconds);
    /// Gives the keyboard to a handle.
    void focusHandle(Handle handle);
    /// True while a handle is dragged, or has the focus and was moved by keys.
    bool isAdjusting() const { return m_dragging || m_movedByKeys; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The user moved a handle.
    void rangeChanged(const TrimRange &range);
    /// With every step of a handle, after `rangeChanged()`: its new time.
    void scrubbed(double seconds, Handle handle);
    void adjustingChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Knob {
        Slider *handle; // for the keyboard and assistive tools
        SpringAnimation seconds; // where it is shown
        SpringAnimation scale;
    };

    TrimGeometry geometryNow() const { return {static_cast<double>(width()), m_duration}; }
    Knob &knob(Handle handle) { return handle == Handle::start ? m_start : m_end; }
    /// The one nearer to a place; where both stand, the one that can move away to that side.
    Handle handleNear(double x) const;
    bool isOnKnob(const QPointF &point) const;
    QRectF knobRect(const Knob &knob) const;

    void setMovedByKeys(bool moved);
    void endDrag();
    void hover(const QPointF &point);
    void placeHandles();
    void paintKnob(QPainter &painter, Handle handle) const;

    double m_duration = 1;
    TrimRange m_range{0, 1};
    std::optional<Handle> m_dragging;
    bool m_movedByKeys = false; // the handle that has the focus
    std::optional<Handle> m_hovered;
    Knob m_start;
    Knob m_end;
};

} // namespace clipwren
