#include "support/ProgramRun.h"

#include <csignal>
#include <stdexcept>

namespace clipwren::test {
namespace {

// What a program may take to stop its own children before it is killed.
constexpr int terminationMilliseconds = 10'000;

} // namespace

ProgramRun::ProgramRun(const QString &program, const QStringList &arguments,
                       const QProcessEnvironment &environment)
{
    m_process.setProcessEnvironment(environment);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.start(program, arguments);
    if (!m_process.waitForStarted())
        throw std::runtime_error("cannot start " + program.toStdString());
}

ProgramRun::~ProgramRun()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (m_process.waitForFinished(terminationMilliseconds))
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void ProgramRun::sendSignal(int number) const
{
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

bool ProgramRun::waitForExit(std::chrono::milliseconds limit)
{
    if (m_process.state() != QProcess::NotRunning
        && !m_process.waitForFinished(static_cast<int>(limit.count())))
        return false;
    m_standardOutput += QString::fromUtf8(m_process.readAllStandardOutput());
    m_standardError += QString::fromUtf8(m_process.readAllStandardError());
    return true;
}

int ProgramRun::exitStatus() const
{
    const bool signalled = m_process.exitStatus() == QProcess::CrashExit;
    return signalled ? 128 + m_process.exitCode() : m_process.exitCode();
}

} // namespace clipwren::test
