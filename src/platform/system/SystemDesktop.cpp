#include "platform/system/SystemDesktop.h"

#include "platform/system/FileManager.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>

namespace clipwren {

SystemDesktop::SystemDesktop()
{
    QObject::connect(&m_notifier, &Notifier::revealRequested,
                     [this](const QString &path) { reveal(path); });
    QObject::connect(&m_notifier, &Notifier::openRequested,
                     [this](const QString &path) { openFile(path); });
}

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

std::unique_ptr<Desktop::Activity> SystemDesktop::beginActivity()
{
    return m_activities.begin();
}

void SystemDesktop::notify(const Notification &notification)
{
    if (QGuiApplication::applicationState() != Qt::ApplicationActive)
        m_notifier.notify(notification);
}

} // namespace clipwren
