#include "ui/components/Animation.h"

#include "ui/components/Theme.h"

#include <QEasingCurve>
#include <QEvent>
#include <QLayout>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace clipwren {

namespace {

// Radians of the undamped swing after which the spring stays within a thousandth of its target.
constexpr double settledPhase = 9.233;

double criticallyDamped(double progress)
{
    const double phase = progress * settledPhase;
    return progress >= 1 ? 1 : 1 - std::exp(-phase) * (1 + phase);
}

QEasingCurve springCurve()
{
    QEasingCurve curve;
    curve.setCustomType(criticallyDamped);
    return curve;
}

} // namespace

SpringAnimation::SpringAnimation(double responseSeconds, double position,
                                 std::function<void(double)> moved, QObject *parent)
    : QVariantAnimation(parent), m_position(position), m_target(position), m_moved(std::move(moved))
{
    setEasingCurve(springCurve());
    setDuration(static_cast<int>(
        std::lround(responseSeconds * settledPhase / (2 * std::numbers::pi) * 1000)));
}

void SpringAnimation::moveTo(double target)
{
    if (Theme::current().reducedMotion()) {
        jumpTo(target);
        return;
    }
    if (target == m_target)
        return;
    stop();
    m_target = target;
    setStartValue(m_position);
    setEndValue(target);
    start();
}

void SpringAnimation::jumpTo(double target)
{
    stop();
    m_target = target;
    m_position = target;
    m_moved(m_position);
}

void SpringAnimation::updateCurrentValue(const QVariant &value)
{
    // Setting the bounds of an animation at rest reports a value, too.
    if (state() != Running)
        return;
    m_position = value.toDouble();
    m_moved(m_position);
}

/// The picture of the content before the change, which fades away.
class AnimatedHeight::OldLook : public QWidget {
public:
    explicit OldLook(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    void show(const QPixmap &picture)
    {
        m_picture = picture;
        setOpacity(1);
        QWidget::show();
        raise();
    }
    void setOpacity(double opacity)
    {
        m_opacity = opacity;
        if (opacity > 0) {
            update();
            return;
        }
        hide();
        m_picture = {};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setOpacity(m_opacity);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
    double m_opacity = 0;
};

AnimatedHeight::AnimatedHeight(QWidget *content, QWidget *parent)
    : QWidget(parent), m_content(content), m_oldLook(new OldLook(this))
{
    // Not fixed: that would limit it to the height of its preferred width.
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_content->setParent(this);
}

void AnimatedHeight::change(std::optional<double> responseSeconds,
                            const std::function<void()> &change)
{
    m_animation.reset();
    if (!responseSeconds || !isVisible() || Theme::current().reducedMotion()) {
        moveTo(1);
        change();
        Q_EMIT settled();
        return;
    }
    m_oldLook->show(grab());
    m_oldHeight = height();
    change();
    moveTo(0);
    m_animation = std::make_unique<SpringAnimation>(*responseSeconds, 0,
                                                    [this](double progress) { moveTo(progress); });
    connect(m_animation.get(), &SpringAnimation::finished, this, &AnimatedHeight::settled);
    m_animation->moveTo(1);
}

void AnimatedHeight::moveTo(double progress)
{
    m_progress = progress;
    m_oldLook->setOpacity(1 - progress);
    updateGeometry();
}

int AnimatedHeight::contentHeight(int width) const
{
    QLayout *layout = m_content->layout();
    if (layout->isEmpty())
        return 0;
    return layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                       : layout->totalSizeHint().height();
}

int AnimatedHeight::heightForWidth(int width) const
{
    const int target = contentHeight(width);
    return static_cast<int>(std::lround(m_oldHeight + (target - m_oldHeight) * m_progress));
}

QSize AnimatedHeight::sizeHint() const
{
    const int width = m_content->layout()->totalSizeHint().width();
    return {width, heightForWidth(width)};
}

QSize AnimatedHeight::minimumSizeHint() const
{
    return {m_content->layout()->totalMinimumSize().width(), 0};
}

bool AnimatedHeight::event(QEvent *event)
{
    // The content is in no layout, so its changes come here.
    if (event->type() == QEvent::LayoutRequest) {
        placeContent();
        updateGeometry();
    }
    return QWidget::event(event);
}

void AnimatedHeight::resizeEvent(QResizeEvent *)
{
    placeContent();
}

void AnimatedHeight::placeContent()
{
    m_content->setGeometry(0, 0, width(), contentHeight(width()));
    m_oldLook->setGeometry(rect());
}

} // namespace clipwren
