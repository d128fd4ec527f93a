#include "platform/system/SystemDesktop.h"

#include "platform/system/FileManager.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>

namespace clipwren {

void SystemDesktop::reveal(const QString &path)
{
    revealInFileManager(path);
}

void SystemDesktop::openFile(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void SystemDesktop::openAddress(const QUrl &address)
{
    QDesktopServices::openUrl(address);
}

QString SystemDesktop::clipboardText() const
{
    return QGuiApplication::clipboard()->text();
}

void SystemDesktop::setClipboardText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void SystemDesktop::playCompletionSound()
{
    m_sound.play();
}

} // namespace clipwren
