#include "ui/components/Slider.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QWheelEvent>

#include <cmath>
#include <limits>

namespace clipwren {

/// Qt's own would read and set the slider's steps instead of its unit.
class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(Slider *slider)
        : QAccessibleWidget(slider, QAccessible::Slider), m_slider(*slider)
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
        return kind == QAccessible::Value ? m_slider.m_unit.textOf(currentValue().toDouble())
                                          : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return m_slider.valueAt(m_slider.value()); }
    void setCurrentValue(const QVariant &value) override
    {
        m_slider.requestPosition(m_slider.positionOf(value.toDouble()));
    }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return m_slider.m_largest; }
    QVariant minimumStepSize() const override
    {
        return m_slider.singleStep() / m_slider.m_unit.steps;
    }

private:
    Slider &m_slider;
};

namespace {

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const slider = qobject_cast<Slider *>(object);
    return slider ? new AccessibleSlider(slider) : nullptr;
}

} // namespace

Slider::Slider(const QString &name, const Unit &unit, QWidget *parent)
    : QSlider(Qt::Horizontal, parent), m_unit(unit)
{
    // Qt takes the same factory only once.
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(name);
    setLayoutDirection(Qt::LeftToRight);
    // The position is what is seen, the value what assistive tools were told; see showValue().
    setTracking(false);
    setMaximum(0);
    connect(this, &QSlider::actionTriggered, this,
            [this] { Q_EMIT valueRequested(valueAt(sliderPosition())); });
}

void Slider::setSteps(double arrow, double page)
{
    setSingleStep(positionOf(arrow));
    setPageStep(positionOf(page));
}

void Slider::setLargestValue(double value)
{
    m_largest = value;
    setMaximum(positionOf(value));
}

void Slider::showValue(double value)
{
    const int position = positionOf(value);
    setSliderPosition(position);
    // A screen reader says each new value of what has the focus. A playing video tells its own
    // with every frame.
    const int heardStep = singleStep() / 5;
    if (!hasFocus() || std::abs(sliderPosition() - this->value()) >= heardStep)
        setValue(position);
}

int Slider::positionOf(double value) const
{
    constexpr double most = std::numeric_limits<int>::max();
    // fmax() takes 0 for what is no number.
    return static_cast<int>(std::lround(std::fmin(std::fmax(value * m_unit.steps, 0), most)));
}

double Slider::valueAt(int position) const
{
    // The largest value may lie between two steps.
    return position == maximum() ? m_largest : position / m_unit.steps;
}

void Slider::requestPosition(int position)
{
    setSliderPosition(position);
    triggerAction(SliderMove);
}

/// Takes the position that is seen for the value.
void Slider::settle()
{
    setValue(sliderPosition());
}

void Slider::endDrag()
{
    // Else the release would ask for the position once more.
    settle();
    setSliderDown(false);
}

void Slider::keyPressEvent(QKeyEvent *event)
{
    // Those of QSlider would take longer steps while a key is held down.
    static constexpr struct {
        int key;
        SliderAction action;
    } keys[] = {
        {Qt::Key_Left, SliderSingleStepSub},   {Qt::Key_Down, SliderSingleStepSub},
        {Qt::Key_Right, SliderSingleStepAdd},  {Qt::Key_Up, SliderSingleStepAdd},
        {Qt::Key_PageDown, SliderPageStepSub}, {Qt::Key_PageUp, SliderPageStepAdd},
        {Qt::Key_Home, SliderToMinimum},       {Qt::Key_End, SliderToMaximum},
    };
    for (const auto &[key, action] : keys) {
        if (event->key() != key)
            continue;
        settle();
        triggerAction(action);
        return;
    }
    event->ignore();
}

void Slider::wheelEvent(QWheelEvent *event)
{
    // It is for the page that scrolls below the pointer.
    event->ignore();
}

} // namespace clipwren
