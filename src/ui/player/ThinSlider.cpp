#include "ui/player/ThinSlider.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QAccessibleValueChangeEvent>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace clipwren {

namespace {

constexpr double trackHeight = 4;
constexpr double knobSize = 12;

class AccessibleThinSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleThinSlider(ThinSlider *slider)
        : QAccessibleWidget(slider, QAccessible::Slider)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? slider().valueText() : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return slider().value(); }
    void setCurrentValue(const QVariant &value) override
    {
        Q_EMIT slider().wanted(std::clamp(value.toDouble(), 0.0, slider().maximum()));
    }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return slider().maximum(); }
    QVariant minimumStepSize() const override { return slider().smallestStep(); }

private:
    ThinSlider &slider() const { return *static_cast<ThinSlider *>(widget()); }
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const slider = qobject_cast<ThinSlider *>(object);
    return slider ? new AccessibleThinSlider(slider) : nullptr;
}

} // namespace

ThinSlider::ThinSlider(const QString &name, Steps steps, TextOf textOf, QWidget *parent)
    : QWidget(parent), m_steps(steps), m_textOf(textOf)
{
    // Qt takes the same factory only once.
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setEnabled(false);
    FocusRing::install(this, 4);
}

void ThinSlider::setMaximum(double maximum)
{
    if (m_maximum == maximum)
        return;
    m_maximum = maximum;
    setEnabled(maximum > 0);
    update();
}

void ThinSlider::setValue(double value)
{
    if (m_value == value)
        return;
    const int pixelBefore = shownPixel();
    const QString textBefore = valueText();
    m_value = value;
    // A playing video tells its position with every frame.
    if (shownPixel() != pixelBefore)
        update();
    if (hasFocus() && valueText() != textBefore) {
        QAccessibleValueChangeEvent event(this, value);
        QAccessible::updateAccessibility(&event);
    }
}

int ThinSlider::shownPixel() const
{
    return static_cast<int>(std::clamp(fraction(), 0.0, 1.0) * width() * devicePixelRatioF());
}

void ThinSlider::want(double value)
{
    Q_EMIT wanted(std::clamp(value, 0.0, m_maximum));
}

void ThinSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_isDragged)
        return;
    m_isDragged = true;
    Q_EMIT dragBegan();
    mouseMoveEvent(event);
}

void ThinSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isDragged)
        want(event->position().x() / width() * m_maximum);
}

void ThinSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endDrag();
}

void ThinSlider::endDrag()
{
    if (std::exchange(m_isDragged, false))
        Q_EMIT dragEnded();
    update();
}

void ThinSlider::cancelDrag()
{
    m_isDragged = false;
    update();
}

void ThinSlider::hideEvent(QHideEvent *)
{
    endDrag();
}

void ThinSlider::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        return want(m_value - m_steps.arrow);
    case Qt::Key_Right:
        return want(m_value + m_steps.arrow);
    case Qt::Key_PageDown:
        return want(m_value - m_steps.page);
    case Qt::Key_PageUp:
        return want(m_value + m_steps.page);
    case Qt::Key_Home:
        return want(0);
    case Qt::Key_End:
        return want(m_maximum);
    default:
        event->ignore();
    }
}

bool ThinSlider::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void ThinSlider::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const QColor ink = theme.color(Theme::Color::OnVideo);
    QPainter painter(this);
    const QRectF track(0, (height() - trackHeight) / 2, width(), trackHeight);
    paintBox(painter, track, trackHeight / 2, theme.color(Theme::Color::OnVideoFaint));
    if (!isEnabled())
        return;
    const double along = std::clamp(fraction(), 0.0, 1.0) * width();
    QRectF filled = track;
    filled.setWidth(along);
    paintBox(painter, filled, std::min(trackHeight, along) / 2, ink);
    if (!m_isDragged && !underMouse() && !hasFocus())
        return;
    const double left = std::clamp(along - knobSize / 2, 0.0, width() - knobSize);
    paintBox(painter, QRectF(left, (height() - knobSize) / 2, knobSize, knobSize), knobSize / 2,
             ink);
}

} // namespace clipwren
