#pragma once

#include <QWidget>

class QVBoxLayout;

namespace clipwren {

class ElidedLabel;
class Label;
struct RecordFact;

/// A name and what it stands for, with a line below. The value can be marked and copied.
class InformationRow : public QWidget {
    Q_OBJECT

public:
    explicit InformationRow(QWidget *parent = nullptr);

    void display(const RecordFact &fact);

private:
    Label *m_label;
    ElidedLabel *m_value;
    QVBoxLayout *m_valuePlace;
};

} // namespace clipwren
