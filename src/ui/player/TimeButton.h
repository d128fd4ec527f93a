#pragma once

#include <QAbstractButton>

namespace clipwren {

/// A running time over a video that can be clicked. Its digits stand still.
class TimeButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit TimeButton(QWidget *parent = nullptr);

    /// Keeps at least the room of `longest`, so that nothing moves as time goes by.
    void setTime(const QString &time, const QString &longest);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_room = 0;
};

} // namespace clipwren
