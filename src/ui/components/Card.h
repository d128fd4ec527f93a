#pragma once

#include "ui/components/Icon.h"
#include "ui/components/Theme.h"

#include <QWidget>

class QHBoxLayout;
class QLineEdit;

namespace clipwren {

/// A rounded ground for other widgets. The user gives it a layout.
class Card : public QWidget {
    Q_OBJECT
public:
    /// Filled with the card colour, with its border.
    explicit Card(QWidget *parent = nullptr);
    /// A ground without border.
    Card(Theme::Color fill, qreal radius, QWidget *parent = nullptr);

    /// In logical pixels; 12 at first.
    void setRadius(qreal radius);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Theme::Color m_fill = Theme::Color::Card;
    bool m_hasBorder = true;
    qreal m_radius = 12;
};

/// A line between two things, one logical pixel high.
class Divider : public QWidget {
    Q_OBJECT
public:
    /// `inset` leaves room free at the leading edge; `opacity` fades the separator's colour.
    explicit Divider(int inset = 0, double opacity = 1, QWidget *parent = nullptr);

    QSize sizeHint() const override { return {m_inset + 1, 1}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_inset;
    double m_opacity;
};

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
