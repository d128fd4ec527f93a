#include "ui/components/Banner.h"

#include "ui/components/Button.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"

#include <QHBoxLayout>

namespace clipwren {

Banner::Banner(QWidget *parent)
    : Card(Theme::Color::OrangeFill, 10, parent),
      m_title(new Label(Label::Mode::Paragraph, Theme::TextStyle::Strong)),
      m_message(new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout)),
      m_buttons(new QHBoxLayout), m_dismiss(Button::iconOnly(u"xmark", tr("Dismiss")))
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->setContentsMargins(0, 2, 0, 2);
    texts->addWidget(m_title);
    texts->addWidget(m_message);
    m_title->hide();
    m_dismiss->setSize(Button::Size::Small);
    m_dismiss->hide();

    auto *symbol = new QVBoxLayout;
    symbol->setContentsMargins(0, 2, 0, 2);
    symbol->addWidget(new IconView(u"exclamationmark.triangle.fill", 18, Theme::Color::OrangeIcon),
                      0, Qt::AlignTop);
    auto *notice = new QHBoxLayout;
    notice->setSpacing(9);
    notice->addLayout(symbol);
    notice->addLayout(texts, 1);
    m_buttons->setSpacing(9);
    m_buttons->setAlignment(Qt::AlignTop);
    m_buttons->addWidget(m_dismiss, 0, Qt::AlignTop);
    auto *row = new FlowRow(9, this);
    row->setContentsMargins(11, 8, 12, 8);
    row->addLayout(notice);
    row->addLayout(m_buttons);
    connect(m_dismiss, &Button::clicked, this, &Banner::dismissed);
}

void Banner::setTitle(const QString &title)
{
    m_title->setText(title);
    m_title->setVisible(!title.isEmpty());
}

void Banner::setMessage(const QString &message)
{
    m_message->setText(message);
    m_message->setColor(Theme::Color::Text);
    m_message->setSelectable(true);
}

void Banner::setMarkdown(const QString &message)
{
    m_message->setMarkdown(message);
    m_message->setColor(Theme::Color::Secondary);
    m_message->setSelectable(false);
}

Button *Banner::addButton(const QString &text, const Icon &icon)
{
    auto *button = new Button(Button::Style::Bordered, text, icon);
    button->setSize(Button::Size::Small);
    m_buttons->insertWidget(m_buttons->count() - 1, button, 0, Qt::AlignTop);
    setTabOrder(button, m_dismiss);
    return button;
}

void Banner::setDismissible(bool dismissible)
{
    m_dismiss->setVisible(dismissible);
}

} // namespace clipwren
