#include "platform/modules/Module.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <utility>

namespace clipwren {

Module::Module(const QString &name, QStringList folders)
    : m_fileName(name + QStringLiteral(".so")), m_folders(std::move(folders))
{
}

QStringList Module::defaultFolders()
{
    const QString here = QCoreApplication::applicationDirPath();
    return {here, here + QStringLiteral("/../lib/clipwren")};
}

QString Module::path() const
{
    for (const QString &folder : m_folders) {
        const QFileInfo file(folder + u'/' + m_fileName);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    return {};
}

QFunctionPointer Module::resolve(const char *symbol)
{
    const QString file = path();
    if (file.isEmpty()) {
        m_failure = QStringLiteral("%1 was not found. Installing Clipwren again should bring it "
                                   "back.")
                        .arg(m_fileName);
        return nullptr;
    }
    QLibrary library(file);
    const QFunctionPointer function = library.resolve(symbol);
    if (!function)
        m_failure = library.errorString();
    return function;
}

} // namespace clipwren
