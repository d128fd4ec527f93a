#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QPointF;

namespace clipwren {

/// The height of a control around its text: the usual one, or more where large texts need it.
int controlHeight(int textHeight, int usual);

/// A text for one line: a blank for each line break and tab. Other blanks stay, as many as they
/// are, since a file name or an address may have them.
QString inOneLine(const QString &text);

/// A tool tip that shows a text as it is. As plain text, one that looks like markup would be taken
/// for it.
QString plainToolTip(const QString &text);

/// How far the letters of a text reach above or below the height of a font, in pixels: those of
/// other scripts come from other fonts.
int overshoot(const QString &text, const QFont &font);

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
