#pragma once

#include "ui/components/Card.h"
#include "ui/shell/RecordFacts.h"

class QVBoxLayout;

namespace clipwren {

class InformationRow;

/// The facts of a saved file, one under the other, to read and to copy.
class InformationBox : public Card {
    Q_OBJECT

public:
    explicit InformationBox(QWidget *parent = nullptr);

    void setFacts(const QList<RecordFact> &facts);

private:
    QVBoxLayout *m_column;
    QList<InformationRow *> m_rows; // those beyond the facts are hidden
};

} // namespace clipwren
