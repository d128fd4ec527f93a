#include "support/LeakCheck.h"

#include "core/tasks/BackgroundTask.h"
#include "support/Files.h"

#include <QDir>

#include <chrono>
#include <thread>
#include <unistd.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// By number, with what each leads to.
QStringList openDescriptors()
{
    QStringList descriptors;
    const QDir folder(u"/proc/self/fd"_s);
    for (const QString &number : folder.entryList(QDir::AllEntries | QDir::System))
        descriptors << number + u" -> "_s + QFile::symLinkTarget(folder.filePath(number));
    return descriptors;
}

} // namespace

int childCount()
{
    int count = 0;
    const QByteArray self = QByteArray::number(getpid());
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QByteArray line = readFile(u"/proc/%1/stat"_s.arg(name));
        // The state and the parent stand behind the name.
        if (line.mid(line.lastIndexOf(')') + 2).split(' ').value(1) == self)
            ++count;
    }
    return count;
}

bool eventually(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

void LeakCheck::OnTestStart(const testing::TestInfo &)
{
    m_descriptorsBefore = openDescriptors();
}

void LeakCheck::OnTestEnd(const testing::TestInfo &)
{
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(20))) << "work is still running";
    EXPECT_TRUE(eventually([] { return childCount() == 0; })) << "a child was left running";
    EXPECT_TRUE(eventually([this] {
        return openDescriptors().size() <= m_descriptorsBefore.size();
    })) << "descriptors were left open; before: "
        << m_descriptorsBefore.join(u", "_s).toStdString()
        << "; now: " << openDescriptors().join(u", "_s).toStdString();
}

} // namespace clipwren::test
