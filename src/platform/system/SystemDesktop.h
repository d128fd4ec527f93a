#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/system/Activities.h"
#include "platform/system/CompletionSound.h"
#include "platform/system/Notifier.h"

#include <QCoreApplication>

namespace clipwren {

/// The desktop that the user sits at: its file manager, default applications, clipboard, sound,
/// notifications and launcher.
class SystemDesktop : public Desktop {
    Q_DECLARE_TR_FUNCTIONS(clipwren::SystemDesktop)
public:
    SystemDesktop();

    void reveal(const QString &path) override;
    void openFile(const QString &path) override;
    void openAddress(const QUrl &address) override;
    QString clipboardText() const override;
    void setClipboardText(const QString &text) override;
    void playCompletionSound() override;
    std::unique_ptr<Activity> beginActivity() override;
    void notify(const Notification &notification) override;
    void announce(const QString &text) override;

    /// Tells when the user has chosen a notification.
    const Notifier &notifier() const { return m_notifier; }

private:
    Activities m_activities;
    Notifier m_notifier;
    CompletionSound m_sound;
};

} // namespace clipwren
