#pragma once

#include <QWidget>

namespace clipwren {

/// One end of a trim slider as the keyboard and assistive tools see it: a slider over the whole
/// duration. The trim slider paints it and takes the mouse for it.
class TrimHandle : public QWidget {
    Q_OBJECT
public:
    /// `name` is its accessible name.
    TrimHandle(const QString &name, QWidget *parent);

    /// In seconds.
    void setValue(double seconds);
    void setDuration(double seconds) { m_duration = seconds; }
    double value() const { return m_value; }
    double duration() const { return m_duration; }

Q_SIGNALS:
    /// The user wants it at a time, in seconds, that may lie anywhere.
    void wanted(double seconds);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    double m_value = 0;
    double m_duration = 0;
};

} // namespace clipwren
