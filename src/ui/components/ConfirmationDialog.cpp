#include "ui/components/ConfirmationDialog.h"

#include "ui/components/Button.h"
#include "ui/components/Label.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace clipwren {

namespace {

constexpr int contentWidth = 360;
constexpr int margin = 20;

} // namespace

ConfirmationDialog::ConfirmationDialog(const QString &title, const QString &confirm,
                                       QWidget *parent)
    : QDialog(parent), m_message(new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout,
                                           Theme::Color::Secondary))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(title);

    m_message->setFixedWidth(Theme::scaled(contentWidth));
    auto *cancel = new Button(Button::Style::Bordered, tr("Cancel"));
    auto *doIt = new Button(Button::Style::Prominent, confirm);
    doIt->setDestructive(true);
    connect(cancel, &Button::clicked, this, &QDialog::reject);
    connect(doIt, &Button::clicked, this, &QDialog::accept);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(doIt);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(new Label(Theme::TextStyle::Subheadline, Theme::Color::Text, title));
    column->addSpacing(8);
    column->addWidget(m_message);
    column->addSpacing(18);
    column->addLayout(buttons);
    cancel->setFocus();
}

void ConfirmationDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_message->setFixedWidth(Theme::scaled(contentWidth));
}

void ConfirmationDialog::setMessage(const QString &message)
{
    m_message->setText(message);
    setAccessibleDescription(message);
}

} // namespace clipwren
