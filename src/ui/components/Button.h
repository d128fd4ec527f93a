#pragma once

#include "ui/components/Icon.h"
#include "ui/components/Theme.h"

#include <QAbstractButton>

#include <optional>

class QPainter;

namespace clipwren {

/// A push button with an optional symbol before its text.
class Button : public QAbstractButton {
    Q_OBJECT
public:
    enum class Style : std::uint8_t {
        Prominent, ///< filled with the accent colour: the one thing to do next
        Bordered,
        Borderless, ///< text or symbol alone, in the tint
    };
    enum class Size : std::uint8_t { Small, Regular, Large };

    Button(Style style, const QString &text, Icon icon = {}, QWidget *parent = nullptr);
    /// A borderless square with only a symbol. `toolTip` is its accessible name, too.
    static Button *iconOnly(Icon icon, const QString &toolTip, QWidget *parent = nullptr);

    void setSize(Size size);
    void setSymbol(Icon icon);
    /// Text and symbol in red: what it does cannot be taken back.
    void setDestructive(bool destructive);
    /// Of borderless buttons; the accent colour, or for lone symbols the secondary colour.
    void setTint(Theme::Color tint);
    /// Room between symbol and text in logical pixels, other than the size's.
    void setSymbolGap(int gap);
    /// A text style other than the size's.
    void setTextStyle(Theme::TextStyle style);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateFont();
    int symbolRoom() const;
    void paintBackground(QPainter &painter) const;
    QColor foreground() const;

    Style m_style;
    Size m_size = Size::Regular;
    Icon m_symbol;
    bool m_destructive = false;
    Theme::Color m_tint;
    std::optional<Theme::TextStyle> m_textStyle;
    std::optional<int> m_symbolGap;
};

} // namespace clipwren
