#pragma once

#include <QTimer>
#include <QWidget>

#include <chrono>

namespace clipwren {

class Button;
class ElidedLabel;

/// A line that says what was removed, with a button that brings it back: for some seconds, and as
/// long as the button has the keyboard. Ctrl+Z does the same.
class UndoLine : public QWidget {
    Q_OBJECT

public:
    explicit UndoLine(std::chrono::milliseconds duration = std::chrono::seconds(8),
                      QWidget *parent = nullptr);

    /// Shows the line, for its whole time.
    void offer(const QString &title);

Q_SIGNALS:
    void undone();
    void expired();

private:
    void expire();

    ElidedLabel *m_text;
    Button *m_undo;
    QTimer m_timer;
};

} // namespace clipwren
