#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace clipwren {

/// Fills a rounded rectangle and draws a line of one logical pixel inside its edge.
/// A transparent colour leaves its part out.
void paintBox(QPainter &painter, const QRectF &rect, qreal radius, const QColor &fill,
              const QColor &border = Qt::transparent);

/// The faint line of shadow under raised things such as bordered buttons.
void paintBoxShadow(QPainter &painter, const QRectF &rect, qreal radius);

/// A spinner's next picture comes after this time, turned by this angle: one turn a second.
inline constexpr int spinnerStepMilliseconds = 33;
inline constexpr int spinnerStepDegrees = 12;
/// The open ring of a spinner, turned clockwise.
void paintSpinner(QPainter &painter, const QRectF &rect, int degrees, const QColor &color);

/// A colour with its opacity multiplied by a factor of 0 to 1.
QColor faded(QColor color, double factor);

} // namespace clipwren
