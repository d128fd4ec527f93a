#include "ui/shell/InformationRow.h"

#include "ui/components/Divider.h"
#include "ui/components/ElidedLabel.h"
#include "ui/shell/RecordFacts.h"

#include <QHBoxLayout>

namespace clipwren {

namespace {

constexpr int labelWidth = 110;
constexpr int paddingAcross = 14;
constexpr int paddingAbove = 8;
constexpr double lineOpacity = 0.4;

Theme::TextStyle valueStyle(const RecordFact &fact)
{
    if (fact.monospaced)
        return Theme::TextStyle::MonospacedCallout;
    return fact.highlight ? Theme::TextStyle::LabelDigits : Theme::TextStyle::BodyDigits;
}

} // namespace

InformationRow::InformationRow(QWidget *parent)
    : QWidget(parent), m_label(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_value(new ElidedLabel(Theme::TextStyle::BodyDigits))
{
    m_label->setFixedWidth(labelWidth);
    m_value->setElideMode(Qt::ElideMiddle);
    m_value->setSelectable(true);

    auto *row = new QHBoxLayout;
    row->setContentsMargins(paddingAcross, paddingAbove, paddingAcross, paddingAbove);
    row->setSpacing(0);
    row->addWidget(m_label);
    row->addWidget(m_value, 1);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(row);
    column->addWidget(new Divider(paddingAcross, lineOpacity));
}

void InformationRow::display(const RecordFact &fact)
{
    m_label->setText(fact.label);
    m_value->setStyle(valueStyle(fact));
    m_value->setFullText(fact.value);
    m_value->setAccessibleDescription(fact.label);
}

} // namespace clipwren
