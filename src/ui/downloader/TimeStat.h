#pragma once

#include <QWidget>

namespace clipwren {

class Label;
class TimeField;

/// A time under a small heading, to be read or to be edited.
class TimeStat : public QWidget {
    Q_OBJECT
public:
    explicit TimeStat(const QString &label, QWidget *parent = nullptr);
    /// One whose time can be edited; `help` says so. It keeps `TimeField::tenthsRoom()` free on its
    /// far side.
    TimeStat(const QString &label, const QString &help, QWidget *parent = nullptr);

    void setSeconds(double seconds);
    /// Null where the time cannot be edited.
    TimeField *field() const { return m_field; }

private:
    void addRows(QWidget *time);

    QString m_label;
    Label *m_time = nullptr;
    TimeField *m_field = nullptr;
};

} // namespace clipwren
