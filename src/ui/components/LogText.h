#pragma once

#include <QBasicTimer>
#include <QPlainTextEdit>

namespace clipwren {

/// Shows the output of a tool for reading and copying, megabytes of it without stalling.
///
/// The beginning is there at once and the rest follows in pieces between the window's other
/// work. Very long lines are folded into several; copying joins them again.
class LogText : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit LogText(QWidget *parent = nullptr);

    /// Replaces what is shown. Beside the user interface nothing is done to the text.
    void setLog(const QString &log);

protected:
    QMimeData *createMimeDataFromSelection() const override;
    void timerEvent(QTimerEvent *event) override;

private:
    void appendPiece();

    QString m_log;
    qsizetype m_shown = 0; // characters of the log that are in the document
    QBasicTimer m_filling;
};

} // namespace clipwren
