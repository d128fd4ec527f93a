#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QPointF;

namespace clipwren {

/// One line of text whose digits all take the room of the widest, so that a running number
/// does not shake what stands beside it.
class DigitText {
public:
    DigitText(const QString &text, const QFont &font);

    /// Width in logical pixels.
    qreal width() const;
    /// Draws in the painter's pen. `baseline` is where the first letter stands.
    void paint(QPainter &painter, const QPointF &baseline) const;

private:
    QString m_text;
    QFont m_font;
};

} // namespace clipwren
