#pragma once

#include "ui/components/Theme.h"

#include <QLabel>

namespace clipwren {

/// A text in one of the theme's styles and colours. Plain text unless told otherwise, so that
/// nothing a tool or a web page says is taken for markup.
class Label : public QLabel {
    Q_OBJECT
public:
    explicit Label(Theme::TextStyle style, Theme::Color color = Theme::Color::Text,
                   const QString &text = {}, QWidget *parent = nullptr);

    void setColor(Theme::Color color);
    void setStyle(Theme::TextStyle style);
    /// Shows `**bold**` and `*italic*` of a text of ours.
    void setMarkdown(const QString &text);
    /// Plain text of which a line may end within a word that is longer than most, behind whole
    /// letters as people see them. Copying takes it as it was given.
    void setBreakableText(const QString &text);
    /// Lets the user mark and copy the text with mouse and keyboard.
    void setSelectable(bool selectable);

    QSize sizeHint() const override;

protected:
    Theme::TextStyle textStyle() const { return m_style; }
    /// True when the digits are laid out by `DigitText`: one line that nobody can mark.
    bool paintsDigits() const;
    /// How far the letters of a text reach above or below the height of the label's font, in
    /// pixels: those of other scripts come from other fonts.
    int overshoot(const QString &text) const;
    /// What copying takes.
    virtual QString copyText() const;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void applyColor();

    Theme::TextStyle m_style;
    Theme::Color m_color;
};

} // namespace clipwren
