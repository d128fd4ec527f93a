#pragma once

#include "ui/components/Theme.h"

#include <QHash>
#include <QLabel>

namespace clipwren {

/// A text in one of the theme's styles and colours. Plain text unless told otherwise, so that
/// nothing a tool or a web page says is taken for markup.
class Label : public QLabel {
    Q_OBJECT
public:
    enum class Mode : std::uint8_t {
        Line, ///< as wide as its text
        /// One line that ends in an ellipsis where room is short. The whole text shows in a tool
        /// tip while it is cut, is what assistive tools read, and is what copying takes. Line
        /// breaks and tabs show as blanks.
        Elided,
        /// Over several lines. A word that is longer than most may be broken, behind whole letters
        /// as people see them; copying takes it as it was given.
        Paragraph,
        /// As a paragraph, but any word longer than a line is broken, so that no address or path
        /// makes the window wider, and lines can be limited. Lines written from right to left are
        /// flush at their right, but start where the texts around them do. Cannot be selected.
        Wrapped,
    };

    explicit Label(Theme::TextStyle style, Theme::Color color = Theme::Color::Text,
                   const QString &text = {}, QWidget *parent = nullptr);
    explicit Label(Mode mode, Theme::TextStyle style, Theme::Color color = Theme::Color::Text,
                   const QString &text = {}, QWidget *parent = nullptr);

    void setColor(Theme::Color color);
    void setStyle(Theme::TextStyle style);
    /// `text()` is what then shows of it.
    void setText(const QString &text);
    QString fullText() const { return m_fullText; }
    bool isElided() const { return m_mode == Mode::Elided; }
    /// Shows `**bold**` and `*italic*` of a text of ours.
    void setMarkdown(const QString &text);
    /// Where an elided text is cut: at its end by default; in the middle for paths and addresses.
    void setElideMode(Qt::TextElideMode mode);
    /// Of a wrapped text: what is beyond ends in an ellipsis and shows whole in a tool tip.
    void setMaximumLines(int lines);
    /// Lets the user mark and copy the text with mouse and keyboard.
    void setSelectable(bool selectable);

    // Of the size policy, QLabel keeps this in step with its own wrapping.
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Lines {
        QStringList texts;
        bool areCut = false;
    };

    void applyColor();
    void applyText();
    void fitToWidth();
    bool paintsDigits() const;
    qreal widthOf(const QString &text) const;
    int lineHeight() const { return fontMetrics().height() + 2 * m_overshoot; }
    const Lines &linesAt(int width) const;
    Lines laidOut(int width) const;
    void paintDigits();
    void paintLines();
    QString copyText() const;

    Mode m_mode;
    Theme::TextStyle m_style;
    Theme::Color m_color;
    QString m_fullText;
    QString m_line; // an elided text as it shows where there is room
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
    int m_maximumLines = 0; // 0 sets no limit
    int m_overshoot = 0; // of an elided or wrapped text
    mutable QHash<int, Lines> m_lines; // of a wrapped text, by width
};

} // namespace clipwren
