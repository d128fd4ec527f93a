#pragma once

#include <QWidget>

namespace clipwren {

/// A thin white slider for the bar over a video, from 0 to a maximum. Grows a knob under the
/// pointer and while it has focus.
///
/// Takes the mouse, and the keys Left, Right, Page Up, Page Down, Home and End. It only asks:
/// what it shows is set from outside. Runs from left to right in every language, as time does.
class ThinSlider : public QWidget {
    Q_OBJECT

public:
    struct Steps {
        double arrow;
        double page;
    };
    /// How assistive tools read a value.
    using TextOf = QString (*)(double value);

    /// `name` is its accessible name.
    ThinSlider(const QString &name, Steps steps, TextOf textOf, QWidget *parent = nullptr);

    /// With 0 there is nothing to choose, and the slider is disabled.
    void setMaximum(double maximum);
    void setValue(double value);
    double maximum() const { return m_maximum; }
    double value() const { return m_value; }
    double smallestStep() const { return m_steps.arrow; }
    QString valueText() const { return m_textOf(m_value); }
    bool isDragged() const { return m_isDragged; }
    /// Forgets a drag without a word.
    void cancelDrag();

    QSize sizeHint() const override { return {200, 22}; }
    QSize minimumSizeHint() const override { return {48, 22}; }

Q_SIGNALS:
    void dragBegan();
    /// The user wants a value, from 0 to the maximum. Comes during drags as well as by keys.
    void wanted(double value);
    void dragEnded();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    double fraction() const { return m_maximum > 0 ? m_value / m_maximum : 0; }
    int shownPixel() const;
    void want(double value);
    void endDrag();

    Steps m_steps;
    TextOf m_textOf;
    double m_maximum = 0;
    double m_value = 0;
    bool m_isDragged = false;
};

} // namespace clipwren
