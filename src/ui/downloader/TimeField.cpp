#include "ui/downloader/TimeField.h"

#include "core/text/Duration.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Label.h"
#include "ui/components/TextLine.h"
#include "ui/components/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestText = 16;
constexpr double ringRadius = 4;
constexpr int cursorRoom = 2;

int widthOf(const QString &text)
{
    return static_cast<int>(
        std::ceil(DigitText(text, Theme::font(Theme::TextStyle::Time)).width()));
}

bool isTime(const QString &text)
{
    return parseTime(text.trimmed()).has_value();
}
constexpr int ringRoom = 10; // between the ring around an edited time and what stands beside it

} // namespace

TimeField::TimeField(const QString &name, const QString &help, QWidget *parent)
    : QLineEdit(parent), m_name(name), m_help(help),
      m_ring(FocusRing::install(this, ringRadius, FocusRing::When::Always))
{
    Theme::setTextStyle(*this, Theme::TextStyle::Time);
    setFrame(false);
    setAutoFillBackground(false);
    setBackgroundRole(QPalette::NoRole);
    // Align the text with that of a label.
    setTextMargins(-2, 0, -2, 0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setMaxLength(longestText);
    setInputMethodHints(Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
    // The window looks up a dropped link; the field would insert it as text.
    setAcceptDrops(false);
    connect(this, &QLineEdit::textChanged, this, &TimeField::updateGeometry);
    connect(this, &QLineEdit::textEdited, this, [this] {
        const bool canBeTime = isTime(text()) || isTime(text() + u'0'); // "1:" goes on
        setWarning(canBeTime ? Warning::None : Warning::Marked);
    });
    setToolTip(m_help);
    setAccessibleDescription(m_help);
    showTime();
}

void TimeField::setSeconds(double seconds)
{
    m_seconds = seconds;
    if (!m_isEdited)
        showTime();
}

void TimeField::setShowsTenths(bool shows)
{
    m_showsTenths = shows;
    if (!m_isEdited)
        showTime();
}

void TimeField::showTime()
{
    const QString time =
        m_isEdited || m_showsTenths ? formatDurationTenths(m_seconds) : formatDuration(m_seconds);
    // Setting the same text again would move the cursor.
    if (text() != time)
        setText(time);
    // Screen readers say the name with the time.
    setAccessibleName(tr("%1 %2", "name and time, as read aloud").arg(m_name, time));
}

int TimeField::tenthsRoom()
{
    return widthOf(u".0"_s);
}

QSize TimeField::sizeHint() const
{
    const int width = widthOf(formatDuration(m_seconds)) + tenthsRoom();
    return {m_isEdited ? std::max(width, widthOf(text()) + cursorRoom) : width,
            fontMetrics().height()};
}

// Editing

void TimeField::beginEdit()
{
    m_isEdited = true;
    showTime();
    selectAll();
    Q_EMIT editedChanged(true);
}

void TimeField::endEdit()
{
    commit();
    m_isEdited = false;
    showTime();
    setWarning(Warning::None);
    Q_EMIT editedChanged(false);
}

void TimeField::commit()
{
    const std::optional<double> typed = parseTime(text().trimmed());
    if (!typed || text() == formatDurationTenths(m_seconds))
        return;
    m_seconds = *typed;
    showTime();
    Q_EMIT committed(*typed);
}

void TimeField::setWarning(Warning warning)
{
    m_ring->setColor(warning == Warning::Marked ? Theme::Color::Red : Theme::Color::FocusRing);
    const QString hint =
        warning == Warning::None ? m_help : tr("Not a time. Type it as 1:05.3, 65.3 or 1:02:05.");
    if (hint == toolTip())
        return;
    setToolTip(hint);
    setAccessibleDescription(hint);
    if (warning == Warning::None)
        QToolTip::hideText();
    else
        QToolTip::showText(mapToGlobal(QPoint(0, height())), hint, this);
}

void TimeField::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        showTime();
        Q_EMIT finished();
    } else if (isReturn && !isTime(text())) {
        showTime();
        selectAll();
        setWarning(Warning::Explained);
    } else if (isReturn) {
        commit();
        Q_EMIT finished();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void TimeField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    if (m_isEdited)
        return;
    beginEdit();
    m_isPressed = event->reason() == Qt::MouseFocusReason;
}

void TimeField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    // The context menu returns the focus.
    if (event->reason() != Qt::PopupFocusReason)
        endEdit();
}

void TimeField::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    // The click has removed the selection.
    if (std::exchange(m_isPressed, false) && !hasSelectedText())
        selectAll();
}

void TimeField::paintEvent(QPaintEvent *event)
{
    if (m_isEdited) {
        QLineEdit::paintEvent(event);
        return;
    }
    const DigitText digits(text(), font());
    const double ascent = QFontMetricsF(font()).ascent();
    const double left = isRightToLeft() ? width() - digits.width() : 0;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    digits.paint(painter, QPointF(left, ascent));
    if (!underMouse())
        return;
    painter.setPen(QPen(Theme::current().color(Theme::Color::Accent), 1, Qt::DotLine));
    const double line = std::floor(ascent) + 2.5;
    painter.drawLine(QPointF(left, line), QPointF(left + digits.width(), line));
}

// TimeStat

TimeStat::TimeStat(const QString &label, QWidget *parent)
    : QWidget(parent), m_label(label), m_time(new Label(Theme::TextStyle::Time))
{
    addRows(m_time);
}

TimeStat::TimeStat(const QString &label, const QString &help, QWidget *parent)
    : QWidget(parent), m_label(label), m_field(new TimeField(label, help))
{
    addRows(m_field);
}

void TimeStat::addRows(QWidget *time)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *heading =
        new Label(Theme::TextStyle::Overline, Theme::Color::Tertiary, m_label.toUpper());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(heading);
    column->addWidget(time);
    if (!m_field)
        return;
    // The room for tenths is free below the heading, too.
    heading->setContentsMargins(0, 0, TimeField::tenthsRoom(), 0);
    connect(m_field, &TimeField::editedChanged, column,
            [column](bool edited) { column->setContentsMargins(0, 0, edited ? ringRoom : 0, 0); });
}

void TimeStat::setSeconds(double seconds)
{
    if (m_field) {
        m_field->setSeconds(seconds);
        return;
    }
    const QString text = formatDuration(seconds);
    m_time->setText(text);
    // Screen readers say the name with the time.
    m_time->setAccessibleName(tr("%1 %2", "name and time, as read aloud").arg(m_label, text));
}

} // namespace clipwren
