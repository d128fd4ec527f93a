#pragma once

#include "ui/components/Card.h"
#include "ui/components/Icon.h"

class QHBoxLayout;
class QLineEdit;

namespace clipwren {

/// A rounded box around a text field, with a symbol before and buttons behind it.
class FieldBox : public Card {
    Q_OBJECT
public:
    /// `name` is the field's accessible name.
    FieldBox(Icon icon, const QString &name, QWidget *parent = nullptr);

    QLineEdit *lineEdit() const { return m_lineEdit; }
    /// Puts a button at the end of the row and owns it.
    void addTrailing(QWidget *widget);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    QLineEdit *m_lineEdit;
    QHBoxLayout *m_row;
};

} // namespace clipwren
