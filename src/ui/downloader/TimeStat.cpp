#include "ui/downloader/TimeStat.h"

#include "core/text/Duration.h"
#include "ui/components/Label.h"

#include <QVBoxLayout>

namespace clipwren {

TimeStat::TimeStat(const QString &label, QWidget *parent)
    : QWidget(parent), m_label(label), m_time(new Label(Theme::TextStyle::Time))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(
        new Label(Theme::TextStyle::Overline, Theme::Color::Tertiary, label.toUpper()));
    column->addWidget(m_time);
}

void TimeStat::setSeconds(double seconds)
{
    const QString text = formatDuration(seconds);
    m_time->setText(text);
    // Heard alone, a time says nothing.
    m_time->setAccessibleName(m_label + u' ' + text);
}

} // namespace clipwren
