#include "ui/shell/UndoLine.h"

#include "ui/components/Button.h"
#include "ui/components/Divider.h"
#include "ui/components/ElidedLabel.h"

#include <QHBoxLayout>
#include <QShortcut>

namespace clipwren {

UndoLine::UndoLine(std::chrono::milliseconds duration, QWidget *parent)
    : QWidget(parent), m_text(new ElidedLabel(Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_undo(new Button(Button::Style::Borderless, tr("Undo")))
{
    m_text->setElideMode(Qt::ElideMiddle);
    m_undo->setSize(Button::Size::Small);
    connect(m_undo, &Button::clicked, this, &UndoLine::undone);
    // That of the button itself would take as long as a press is shown.
    auto *undo = new QShortcut(QKeySequence::Undo, this, this, &UndoLine::undone);
    undo->setAutoRepeat(false);

    auto *row = new QHBoxLayout;
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(4);
    row->addWidget(m_text);
    row->addWidget(
        new Label(Theme::TextStyle::Callout, Theme::Color::Tertiary, QStringLiteral("·")));
    row->addWidget(m_undo);
    row->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider);
    column->addLayout(row);

    m_timer.setInterval(duration);
    connect(&m_timer, &QTimer::timeout, this, &UndoLine::expire);
    hide();
}

void UndoLine::offer(const QString &title)
{
    m_text->setFullText(tr("Removed “%1”").arg(title));
    m_timer.start();
    show();
}

void UndoLine::expire()
{
    // Somebody is about to press it.
    if (!m_undo->hasFocus())
        Q_EMIT expired();
}

} // namespace clipwren
