#include "ui/shell/InformationRow.h"

#include "ui/components/Divider.h"
#include "ui/components/ElidedLabel.h"
#include "ui/shell/RecordFacts.h"

#include <QHBoxLayout>

#include <algorithm>

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

/// How far below its top a label of one line has its base line.
int baseLine(const QLabel &label)
{
    const QFontMetrics metrics(label.font());
    return (label.sizeHint().height() - metrics.height()) / 2 + metrics.ascent();
}

} // namespace

InformationRow::InformationRow(QWidget *parent)
    : QWidget(parent), m_label(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_value(new ElidedLabel(Theme::TextStyle::BodyDigits)), m_valuePlace(new QVBoxLayout)
{
    m_label->setFixedWidth(labelWidth);
    m_value->setElideMode(Qt::ElideMiddle);
    m_value->setSelectable(true);

    auto *row = new QHBoxLayout;
    row->setContentsMargins(paddingAcross, paddingAbove, paddingAcross, paddingAbove);
    row->setSpacing(0);
    row->addWidget(m_label, 0, Qt::AlignTop);
    row->addLayout(m_valuePlace, 1);
    m_valuePlace->addWidget(m_value);
    m_valuePlace->addStretch(1);

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

    // Rows are read across: label and value stand on one line.
    m_label->setContentsMargins({});
    const int lower = baseLine(*m_value) - baseLine(*m_label);
    m_label->setContentsMargins(0, std::max(0, lower), 0, 0);
    m_valuePlace->setContentsMargins(0, std::max(0, -lower), 0, 0);
}

} // namespace clipwren
