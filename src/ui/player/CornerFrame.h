#pragma once

#include <QColor>
#include <QWidget>

namespace clipwren {

/// Lies over a rectangle and makes its corners look round, sharp at any pixel ratio: paints what
/// lies around into the corners, and an outline inside the shape. Lets the pointer through.
///
/// OpenGL widgets hide what is below them, so they cannot be clipped themselves.
class CornerFrame : public QWidget {
    Q_OBJECT

public:
    explicit CornerFrame(QWidget *parent);

    /// In logical pixels.
    void setRadius(double radius);
    /// An invalid colour stands for the palette's window colour.
    void setBackdrop(const QColor &color);
    /// No outline with an invalid colour.
    void setOutline(const QColor &color, double width);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_radius = 0;
    QColor m_backdrop;
    QColor m_outline;
    double m_outlineWidth = 0;
};

} // namespace clipwren
