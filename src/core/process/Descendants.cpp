#include "core/process/Descendants.h"

#include <algorithm>
#include <iterator>
#include <poll.h>

#ifdef __linux__

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <optional>
#include <set>
// glibc 2.36 does not declare these for C++.
extern "C" {
#include <sys/pidfd.h>
}

namespace clipwren {
namespace {

struct Process {
    pid_t id;
    pid_t parent;
    pid_t session;
};

std::optional<Process> processWith(pid_t id)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray line = file.readAll();
    // "pid (name) state parent group session …"; the name itself may hold blanks and brackets.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 1).simplified().split(' ');
    if (fields.size() < 4 || fields[0] == "Z")
        return std::nullopt;
    return Process{id, fields[1].toInt(), fields[3].toInt()};
}

std::vector<Process> allProcesses()
{
    std::vector<Process> processes;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &name : names) {
        bool isNumber = false;
        const pid_t id = name.toInt(&isNumber);
        if (!isNumber)
            continue;
        if (const auto process = processWith(id))
            processes.push_back(*process);
    }
    return processes;
}

} // namespace

Descendants::Descendants(pid_t leader)
{
    const std::vector<Process> processes = allProcesses();
    std::set<pid_t> family{leader};
    for (bool grew = true; grew;) {
        grew = false;
        for (const Process &process : processes) {
            if ((process.session == leader || family.contains(process.parent))
                && family.insert(process.id).second)
                grew = true;
        }
    }
    for (const Process &process : processes) {
        if (process.id == leader || !family.contains(process.id))
            continue;
        // The number may belong to another process by now: take a handle, then look again.
        FileDescriptor handle(::pidfd_open(process.id, 0));
        const auto again = processWith(process.id);
        if (handle.isOpen() && again && again->session == process.session)
            m_handles.push_back(std::move(handle));
    }
}

void Descendants::signal(int signal) const
{
    for (const FileDescriptor &handle : m_handles)
        ::pidfd_send_signal(handle.get(), signal, nullptr, 0);
}

} // namespace clipwren

#else

namespace clipwren {

Descendants::Descendants(pid_t)
{
}

void Descendants::signal(int) const
{
}

} // namespace clipwren

#endif

namespace clipwren {

void Descendants::add(Descendants others)
{
    std::ranges::move(others.m_handles, std::back_inserter(m_handles));
}

bool Descendants::waitUntil(std::chrono::steady_clock::time_point end, int interrupting)
{
    while (!m_handles.empty()) {
        // A handle becomes readable when its process has ended.
        std::vector<pollfd> events{{interrupting, POLLIN, 0}};
        for (const FileDescriptor &handle : m_handles)
            events.push_back({handle.get(), POLLIN, 0});
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        ::poll(events.data(), events.size(), static_cast<int>(left.count()));
        if (events.front().revents != 0)
            return false;
        auto event = std::next(events.begin());
        std::erase_if(m_handles, [&](const FileDescriptor &) { return (event++)->revents != 0; });
    }
    return true;
}

} // namespace clipwren
