#include "core/json/JsonObjectReader.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "fuzz/Fuzz.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

using namespace clipwren;
using namespace Qt::StringLiterals;

/// The two lists as anybody may have left them on the disk; what is read is what is written back.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static const QTemporaryDir folder;
    for (const QString &name : {u"downloads.json"_s, u"history.json"_s}) {
        QFile file(folder.filePath(name));
        fuzz::require(file.open(QIODevice::WriteOnly));
        file.write(fuzz::bytesOf(data, size));
    }
    DownloadStore store(folder.path());
    HistoryStore history(folder.path());
    for (const DownloadRecord &record : store.records()) {
        const QByteArray json = QJsonDocument(record.toJson()).toJson();
        const auto again = DownloadRecord::fromJson(JsonObjectReader::fromDocument(json));
        fuzz::require(again == record);
    }
    if (!history.entries().isEmpty()) {
        const QString url = history.entries().last().url;
        history.recordDownload(url, {}, {}, {});
        fuzz::require(HistoryStore(folder.path()).entries() == history.entries());
    }
    return 0;
}
