#pragma once

#include <QLineEdit>

#include <cstdint>

namespace clipwren {

class FocusRing;

/// A time that looks like a plain read-out until it gets the focus, and is a text field then.
///
/// Return commits what was typed, and so does leaving the field; Escape brings back the time of
/// before. What is no time is marked while it stands there, and never committed.
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
        Marked, ///< what stands there is no time
        Explained, ///< what stood there was none
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

} // namespace clipwren
