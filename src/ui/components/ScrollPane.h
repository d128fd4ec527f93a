#pragma once

#include <QScrollArea>

namespace clipwren {

/// A column of content that can be scrolled up and down, on the ground behind.
class ScrollPane : public QScrollArea {
    Q_OBJECT
public:
    /// The content's layout gets at most `maximumWidth` logical pixels, in the middle. It keeps
    /// its own margins, which count.
    ScrollPane(QWidget *content, int maximumWidth, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    int m_maximumWidth;
};

} // namespace clipwren
