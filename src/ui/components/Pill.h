#pragma once

#include "ui/components/Icon.h"

#include <QLabel>

namespace clipwren {

/// A short verdict with its symbol on a capsule of the same colour.
class Pill : public QLabel {
    Q_OBJECT
public:
    enum class Tone { Green, Blue, Orange };

    explicit Pill(QWidget *parent = nullptr);

    void display(Tone tone, Icon icon, const QString &text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Tone m_tone = Tone::Green;
    Icon m_icon;
};

} // namespace clipwren
