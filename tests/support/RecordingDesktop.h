#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/desktop/Preferences.h"

#include <QFileInfo>
#include <QMap>
#include <QStringList>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// Notes what it was asked for: "reveal PATH", "open PATH", "browse ADDRESS", "copy TEXT", "sound".
class RecordingDesktop : public Desktop {
public:
    QStringList log;
    QString clipboard;

    void reveal(const QString &path) override { log << u"reveal "_s + path; }
    void openFile(const QString &path) override { log << u"open "_s + path; }
    void openAddress(const QUrl &address) override { log << u"browse "_s + address.toString(); }
    QString clipboardText() const override { return clipboard; }
    void setClipboardText(const QString &text) override
    {
        clipboard = text;
        log << u"copy "_s + text;
    }
    void playCompletionSound() override { log << u"sound"_s; }

    /// "SUMMARY | BODY | FILE NAME" each.
    QStringList notifications;
    QStringList announcements;
    int activities = 0; ///< that run
    double progress = -1; ///< as told last

    std::unique_ptr<Activity> beginActivity() override
    {
        return std::make_unique<NotedActivity>(*this);
    }
    void notify(const Notification &each) override
    {
        notifications << QStringList{each.summary, each.body, QFileInfo(each.filePath).fileName()}
                             .join(u" | "_s);
    }
    void announce(const QString &text) override { announcements << text; }

private:
    class NotedActivity : public Activity {
    public:
        explicit NotedActivity(RecordingDesktop &desktop) : m_desktop(desktop)
        {
            ++m_desktop.activities;
        }
        NotedActivity(const NotedActivity &) = delete;
        NotedActivity &operator=(const NotedActivity &) = delete;
        ~NotedActivity() override { --m_desktop.activities; }
        void setProgress(double fraction) override { m_desktop.progress = fraction; }

    private:
        RecordingDesktop &m_desktop;
    };
};

/// Preferences that are gone with the test.
class MemoryPreferences : public Preferences {
public:
    std::optional<QString> text(const QString &key) const override
    {
        return m_texts.contains(key) ? std::optional(m_texts.value(key)) : std::nullopt;
    }
    void setText(const QString &key, const QString &text) override { m_texts.insert(key, text); }

private:
    QMap<QString, QString> m_texts;
};

} // namespace clipwren::test
