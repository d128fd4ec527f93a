#include "ui/downloader/TimeStat.h"

#include "core/text/Duration.h"
#include "ui/components/Label.h"
#include "ui/downloader/TimeField.h"

#include <QVBoxLayout>

namespace clipwren {

namespace {

constexpr int ringRoom = 10; // between the ring around an edited time and what stands beside it

}

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
    setMinimumWidth(heading->sizeHint().width() + TimeField::tenthsRoom());
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
    // Heard alone, a time says nothing.
    m_time->setAccessibleName(m_label + u' ' + text);
}

} // namespace clipwren
