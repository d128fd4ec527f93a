#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>

namespace clipwren::test {

/// One run of a program, with all that it writes. It is ended with the object.
class ProgramRun {
public:
    /// Starts it with no input. Throws std::runtime_error when it cannot be started.
    ProgramRun(const QString &program, const QStringList &arguments,
               const QProcessEnvironment &environment);
    ~ProgramRun();
    Q_DISABLE_COPY_MOVE(ProgramRun)

    void sendSignal(int number) const;
    /// False when it still runs after that time.
    bool waitForExit(std::chrono::milliseconds limit);

    /// As a shell tells it: 128 and the signal's number for a program that a signal ended.
    int exitStatus() const;
    QString standardOutput() const { return m_standardOutput; }
    QString standardError() const { return m_standardError; }

private:
    QProcess m_process;
    QString m_standardOutput;
    QString m_standardError;
};

} // namespace clipwren::test
