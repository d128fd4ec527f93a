#include "app/InterruptSignal.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace clipwren {
namespace {

constexpr std::array signalNumbers{SIGINT, SIGTERM, SIGHUP};

// All that a signal handler may do: write to a pipe that the event loop watches.
std::atomic<int> wakeUpDescriptor = -1;

void handleSignal(int)
{
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakeUpDescriptor, &byte, 1);
    errno = savedError;
}

void handleSignalsWith(void (*handler)(int))
{
    struct sigaction action { };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : signalNumbers) {
        // Whoever started us with a signal ignored, as nohup does, wants us to outlive it.
        struct sigaction present { };
        if (::sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
}

} // namespace

InterruptSignal::InterruptSignal(QObject *parent) : QObject(parent)
{
    wakeUpDescriptor = m_pipe.writeEnd.get();
    auto *notifier = new QSocketNotifier(m_pipe.readEnd.get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(m_pipe.readEnd.get(), &byte, 1) == 1)
            Q_EMIT interrupted();
    });
    handleSignalsWith(handleSignal);
}

InterruptSignal::~InterruptSignal()
{
    handleSignalsWith(SIG_DFL);
    wakeUpDescriptor = -1;
}

} // namespace clipwren
