#include "ui/shell/InformationBox.h"

#include "ui/shell/InformationRow.h"

#include <QVBoxLayout>

namespace clipwren {

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
