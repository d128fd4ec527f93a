#include "ui/shell/InformationBox.h"

#include "ui/components/Divider.h"
#include "ui/components/Label.h"

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

/// A label and its value, with a line below. The value can be marked and copied.
class InformationRow : public QWidget {
public:
    InformationRow();

    void display(const RecordFact &fact);

private:
    Label *m_label;
    Label *m_value;
    QVBoxLayout *m_valuePlace;
};

InformationRow::InformationRow()
    : m_label(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_value(new Label(Label::Mode::Elided, Theme::TextStyle::BodyDigits)),
      m_valuePlace(new QVBoxLayout)
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
    m_value->setText(fact.value);
    m_value->setAccessibleDescription(fact.label);

    // Align label and value on one base line, though their fonts differ.
    m_label->setContentsMargins({});
    const int lower = baseLine(*m_value) - baseLine(*m_label);
    m_label->setContentsMargins(0, std::max(0, lower), 0, 0);
    m_valuePlace->setContentsMargins(0, std::max(0, -lower), 0, 0);
}

InformationBox::InformationBox(QWidget *parent) : Card(parent), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

void InformationBox::setFacts(const QList<RecordFact> &facts)
{
    while (m_rows.size() < facts.size()) {
        m_rows << new InformationRow;
        m_column->addWidget(m_rows.constLast());
    }
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        const bool used = index < facts.size();
        if (used)
            m_rows[index]->display(facts[index]);
        m_rows[index]->setVisible(used);
    }
}

} // namespace clipwren
