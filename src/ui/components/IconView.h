#pragma once

#include "ui/components/Icon.h"
#include "ui/components/Theme.h"

#include <QWidget>

namespace clipwren {

/// A symbol as a picture beside a text. Says nothing to assistive tools: the text does.
class IconView : public QWidget {
    Q_OBJECT
public:
    /// `size` in logical pixels.
    IconView(Icon icon, int size, Theme::Color color, QWidget *parent = nullptr);

    void setIcon(Icon icon);
    void setColor(Theme::Color color);
    Icon icon() const { return m_icon; }

    QSize sizeHint() const override { return {m_size, m_size}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Icon m_icon;
    int m_size;
    Theme::Color m_color;
};

} // namespace clipwren
