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
    /// Lets the user mark and copy the text with mouse and keyboard.
    void setSelectable(bool selectable);

    QSize sizeHint() const override;

protected:
    Theme::TextStyle textStyle() const { return m_style; }
    /// True when the digits are laid out by `DigitText`: one line that nobody can mark.
    bool paintsDigits() const;
    void paintEvent(QPaintEvent *event) override;

private:
    void applyColor();

    Theme::TextStyle m_style;
    Theme::Color m_color;
};

} // namespace clipwren
