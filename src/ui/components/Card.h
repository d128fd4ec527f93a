#pragma once

#include "ui/components/Theme.h"

#include <QWidget>

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

} // namespace clipwren
