#include "ui/downloader/TrimHandle.h"

#include "core/text/Duration.h"
#include "ui/components/FocusRing.h"
#include "ui/downloader/TrimGeometry.h"

#include <QAccessibleValueChangeEvent>
#include <QAccessibleWidget>
#include <QKeyEvent>

#include <array>

namespace clipwren {

namespace {

struct Step {
    int key;
    double seconds;
};

constexpr std::array steps = {
    Step{Qt::Key_Left, -0.1}, Step{Qt::Key_Down, -0.1},      Step{Qt::Key_Right, 0.1},
    Step{Qt::Key_Up, 0.1},    Step{Qt::Key_PageDown, -10.0}, Step{Qt::Key_PageUp, 10.0},
};
constexpr double shiftFactor = 10;

class AccessibleTrimHandle : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleTrimHandle(TrimHandle *handle)
        : QAccessibleWidget(handle, QAccessible::Slider)
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
        return kind == QAccessible::Value ? formatDuration(handle().value())
                                          : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return handle().value(); }
    void setCurrentValue(const QVariant &value) override
    {
        Q_EMIT handle().wanted(toTenths(value.toDouble()));
    }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return handle().duration(); }
    QVariant minimumStepSize() const override { return steps.back().seconds / 100; }

private:
    TrimHandle &handle() const { return *static_cast<TrimHandle *>(widget()); }
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *handle = qobject_cast<TrimHandle *>(object);
    return handle ? new AccessibleTrimHandle(handle) : nullptr;
}

} // namespace

TrimHandle::TrimHandle(const QString &name, QWidget *parent) : QWidget(parent)
{
    // Qt takes the same factory only once.
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(int(TrimGeometry::knobSize), int(TrimGeometry::knobSize));
    FocusRing::install(this, TrimGeometry::knobSize / 2);
}

void TrimHandle::setValue(double seconds)
{
    if (m_value == seconds)
        return;
    m_value = seconds;
    QAccessibleValueChangeEvent event(this, seconds);
    QAccessible::updateAccessibility(&event);
}

void TrimHandle::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) {
        event->ignore();
        return;
    }
    if (event->key() == Qt::Key_Home) {
        Q_EMIT wanted(0);
        return;
    }
    if (event->key() == Qt::Key_End) {
        Q_EMIT wanted(m_duration);
        return;
    }
    for (const Step &step : steps) {
        if (event->key() != step.key)
            continue;
        const bool byPage = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
        const bool shifted = event->modifiers() & Qt::ShiftModifier;
        Q_EMIT wanted(toTenths(m_value + step.seconds * (shifted && !byPage ? shiftFactor : 1)));
        return;
    }
    event->ignore();
}

} // namespace clipwren
