#pragma once

#include "ui/components/Label.h"

#include <optional>

namespace clipwren {

/// A text over several lines. Words longer than a line are broken, so that no address or path
/// makes the window wider; what is beyond the last line allowed ends in an ellipsis and shows
/// whole in a tool tip. Lines written from right to left are flush at their right, but start where
/// the texts around them do.
class WrappedLabel : public Label {
    Q_OBJECT
public:
    /// `maximumLines` of 0 sets no limit.
    explicit WrappedLabel(Theme::TextStyle style, Theme::Color color = Theme::Color::Text,
                          int maximumLines = 0, QWidget *parent = nullptr);

    void setText(const QString &text);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Lines {
        int width = 0; // they were laid out for
        QStringList texts;
        bool areCut = false;
    };
    int lineHeight() const { return fontMetrics().height() + 2 * m_overshoot; }
    const Lines &linesAt(int width) const;
    Lines laidOut(int width) const;
    void updateToolTip();

    int m_maximumLines;
    int m_overshoot = 0; // of the text
    mutable std::optional<Lines> m_lines; // as last asked for
};

} // namespace clipwren
