#pragma once

#include <QWidget>

namespace clipwren {

class Label;

/// A time under a small heading.
class TimeStat : public QWidget {
    Q_OBJECT
public:
    explicit TimeStat(const QString &label, QWidget *parent = nullptr);

    void setSeconds(double seconds);

private:
    QString m_label;
    Label *m_time;
};

} // namespace clipwren
