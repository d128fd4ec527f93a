#include "core/process/Descendants.h"

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

std::optional<pid_t> parentOf(pid_t process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray line = file.readAll();
    // "pid (name) state parent …"; the name itself may hold blanks and brackets.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 1).simplified().split(' ');
    return fields.size() > 1 ? std::optional<pid_t>(fields[1].toInt()) : std::nullopt;
}

struct Process {
    pid_t id;
    pid_t parent;
};

std::vector<Process> allProcesses()
{
    std::vector<Process> processes;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &name : names) {
        bool isNumber = false;
        const pid_t id = name.toInt(&isNumber);
        if (!isNumber)
            continue;
        if (const auto parent = parentOf(id))
            processes.push_back({id, *parent});
    }
    return processes;
}

} // namespace

Descendants::Descendants(pid_t ancestor)
{
    const std::vector<Process> processes = allProcesses();
    std::set<pid_t> family{ancestor};
    for (bool grew = true; grew;) {
        grew = false;
        for (const Process &process : processes) {
            if (family.contains(process.parent) && family.insert(process.id).second)
                grew = true;
        }
    }
    for (const Process &process : processes) {
        if (process.id == ancestor || !family.contains(process.id))
            continue;
        // The number may belong to another process by now: take a handle, then look again.
        FileDescriptor handle(::pidfd_open(process.id, 0));
        if (handle.isOpen() && parentOf(process.id) == process.parent)
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
