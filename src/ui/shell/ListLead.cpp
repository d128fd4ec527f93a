#include "ui/shell/ListLead.h"

#include "ui/components/Button.h"
#include "ui/components/Label.h"

#include <QVBoxLayout>

namespace clipwren {

ListLead::ListLead(const QString &header, const QString &emptyText, QWidget *parent)
    : QWidget(parent),
      m_newDownload(new Button(Button::Style::Borderless, tr("New Download"), u"plus.circle.fill")),
      m_empty(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary, emptyText))
{
    m_newDownload->setSize(Button::Size::Large);
    m_newDownload->setTextStyle(Theme::TextStyle::Label);
    m_newDownload->setSymbolGap(10);
    m_empty->setContentsMargins(0, 8, 0, 8);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 4, 16, 5);
    column->setSpacing(0);
    column->addWidget(m_newDownload);
    column->addSpacing(9);
    column->addWidget(new Label(Theme::TextStyle::SectionHeader, Theme::Color::Secondary, header));
    column->addWidget(m_empty);
}

void ListLead::setEmpty(bool empty)
{
    m_empty->setVisible(empty);
    updateGeometry();
}

} // namespace clipwren
