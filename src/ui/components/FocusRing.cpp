#include "ui/components/FocusRing.h"

#include <QFocusEvent>
#include <QFocusFrame>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace clipwren {

namespace {

constexpr qreal thickness = 2;
// The style's margin: the ring's own room and a gap, so that it shows around a filled control.
constexpr qreal margin = 4;

class RingFrame : public QFocusFrame {
public:
    RingFrame(QWidget *parent, qreal radius, Theme::Color color)
        : QFocusFrame(parent), m_radius(radius), m_color(color)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void setColor(Theme::Color color)
    {
        m_color = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Theme::current().color(m_color), thickness));
        const qreal radius = m_radius + margin - thickness / 2;
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    }

private:
    qreal m_radius;
    Theme::Color m_color;
};

bool isKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

/// Reasons that bring back the focus a control had before.
bool isReturn(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

/// Focus that a program moves by itself shows its ring after a key, and none after a click.
bool lastInputWasKeyboard = false;

} // namespace

FocusRing::FocusRing(QWidget *control, QWidget *framed, qreal radius, When when)
    : QObject(control), m_framed(framed), m_radius(radius), m_when(when)
{
    control->installEventFilter(this);
}

FocusRing *FocusRing::install(QWidget *control, qreal radius, When when, QWidget *framed)
{
    return new FocusRing(control, framed ? framed : control, radius, when);
}

void FocusRing::setColor(Theme::Color color)
{
    m_color = color;
    if (m_frame)
        static_cast<RingFrame *>(m_frame.data())->setColor(color);
}

void FocusRing::showFrame()
{
    if (!m_framed)
        return;
    if (!m_frame)
        m_frame = new RingFrame(m_framed, m_radius, m_color);
    m_frame->setWidget(m_framed);
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        if (!isReturn(reason)) {
            m_byKeyboard =
                isKeyboard(reason) || (reason == Qt::OtherFocusReason && lastInputWasKeyboard);
            lastInputWasKeyboard = m_byKeyboard;
        }
        if (m_byKeyboard || m_when == When::Always)
            showFrame();
    } else if (event->type() == QEvent::FocusOut && m_frame) {
        m_frame->setWidget(nullptr);
    } else if (event->type() == QEvent::MouseButtonPress) {
        lastInputWasKeyboard = false;
    } else if (event->type() == QEvent::KeyPress) {
        lastInputWasKeyboard = true;
        // A clicked control that is then operated by keys shows where the keys go.
        if (m_when == When::Keyboard && !std::exchange(m_byKeyboard, true))
            showFrame();
    }
    return QObject::eventFilter(watched, event);
}

void passFocus(const QWidget &leaving, QWidget &heir)
{
    const QWidget *focus = leaving.window()->focusWidget();
    if (focus == &leaving || leaving.isAncestorOf(focus))
        heir.setFocus(Qt::OtherFocusReason);
}

} // namespace clipwren
