#pragma once

#include <QLineEdit>

#include <cstdint>

namespace clipwren {

class FocusRing;
class Label;

/// A time that looks like a plain read-out until it gets the focus, and is a text field then.
///
/// Return commits what was typed, and so does leaving the field; Escape restores the
/// earlier time. A text that is no time is marked, and never committed.
class TimeField : public QLineEdit {
    Q_OBJECT
public:
    /// Its accessible name is `name` and the time. `help` says what can be done with it.
    TimeField(const QString &name, const QString &help, QWidget *parent = nullptr);

    /// At least 0. What is being typed stays.
    void setSeconds(double seconds);
    /// Whether tenths of a second are shown while nobody edits the time. Else they are rounded.
    void setShowsTenths(bool shows);

    /// Logical pixels that are kept free behind whole seconds, so that nothing moves when their
    /// tenths come.
    static int tenthsRoom();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// Another time than the one of before was typed, in seconds.
    void committed(double seconds);
    /// The field got the focus, or lost it.
    void editedChanged(bool edited);
    /// Return or Escape ended the edit, after `committed()`. The focus is still here.
    void finished();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    enum class Warning : std::uint8_t {
        None,
        Marked, ///< the text is no time
        Explained, ///< the rejected text was none
    };

    void showTime();
    void beginEdit();
    void endEdit();
    void commit();
    void setWarning(Warning warning);

    QString m_name;
    QString m_help;
    FocusRing *m_ring;
    double m_seconds = 0;
    bool m_showsTenths = false;
    bool m_isEdited = false;
    bool m_isPressed = false; // by the click that began the edit
};

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
