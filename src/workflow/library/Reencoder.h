#pragma once

#include "core/library/DownloadRecord.h"
#include "core/tasks/BackgroundTask.h"
#include "platform/desktop/Desktop.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <deque>
#include <map>
#include <memory>

namespace clipwren {

class DownloadStore;
class ToolEnvironment;

/// Makes QuickTime-compatible copies of saved files and lets their records name the new files. No
/// copy takes the place of another file.
///
/// User-interface thread only; ffmpeg runs beside it. Destroying this stops what runs.
class Reencoder : public QObject {
    Q_OBJECT

public:
    /// What is given must outlive this.
    Reencoder(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
              QObject *parent = nullptr);
    ~Reencoder() override;
    Reencoder(const Reencoder &) = delete;
    Reencoder &operator=(const Reencoder &) = delete;

    /// Starts unless that record is already being re-encoded or a tool is missing. Files whose
    /// names differ only in the extension are re-encoded one after the other. A failure is logged
    /// as "Re-encode failed: " and the reason, and the user is notified of either end.
    void convertToH264(const DownloadRecord &record);

    /// Ids of the records whose re-encode runs or waits.
    QSet<QUuid> reencodingIDs() const { return m_reencodingIDs; }

Q_SIGNALS:
    void reencodingChanged();

private:
    struct Job {
        QUuid id;
        QString input;
    };

    void startNext();
    QString suffixFor(const QString &input) const;
    void start(const Job &job);
    void succeed(const QUuid &id, const QString &output);
    void fail(const QUuid &id, const std::exception_ptr &failure);
    void finish(const QUuid &id);

    DownloadStore &m_store;
    const ToolEnvironment &m_tools;
    Desktop &m_desktop;
    QSet<QUuid> m_reencodingIDs;
    std::deque<Job> m_waiting;
    struct Running {
        QString input;
        std::unique_ptr<Desktop::Activity> activity;
        BackgroundTask task;
    };
    std::map<QUuid, Running> m_running;
    QHash<QString, QString> m_inputs; ///< input paths by output path
};

} // namespace clipwren
