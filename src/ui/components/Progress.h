#pragma once

#include <QBasicTimer>
#include <QProgressBar>

namespace clipwren {

/// A thin bar that fills from the left, in the accent colour.
class LinearProgress : public QProgressBar {
    Q_OBJECT
public:
    explicit LinearProgress(QWidget *parent = nullptr);

    /// 0 to 1. What lies outside is taken for the nearer end, and no number for 0.
    void setFraction(double fraction);

    QSize sizeHint() const override { return {120, 6}; }
    QSize minimumSizeHint() const override { return {24, 6}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// Says that something of unknown length is going on. Wakes nobody up while hidden, and stands
/// still under reduced motion. A progress bar without an end to assistive tools.
class Spinner : public QProgressBar {
    Q_OBJECT
public:
    /// `size` is the ring's diameter in logical pixels.
    explicit Spinner(int size = 18, QWidget *parent = nullptr);

    bool isTurning() const { return m_timer.isActive(); }
    QSize sizeHint() const override { return {m_size, m_size}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_size;
    int m_degrees = 0;
    QBasicTimer m_timer;
};

} // namespace clipwren
