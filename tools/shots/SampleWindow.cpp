#include "SampleWindow.h"

#include "core/library/JsonFields.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <stdexcept>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

const QString sampleFilm = QStringLiteral(CLIPWREN_SAMPLE_SITE_MEDIA "/tide-clock.mp4");
const QString address = u"https://video.example/watch?v=tide-clock-01"_s;

QByteArray metadata(const QString &title, const QString &thumbnail)
{
    const QJsonArray formats{
        QJsonObject{{u"vcodec"_s, u"vp09.00.40.08"_s},
                    {u"acodec"_s, u"none"_s},
                    {u"height"_s, 2160},
                    {u"ext"_s, u"webm"_s},
                    {u"filesize"_s, 412'500'000}},
        QJsonObject{{u"vcodec"_s, u"avc1.64001F"_s},
                    {u"acodec"_s, u"none"_s},
                    {u"height"_s, 1080},
                    {u"ext"_s, u"mp4"_s},
                    {u"filesize"_s, 148'500'000}},
    };
    return QJsonDocument(QJsonObject{{u"title"_s, title},
                                     {u"duration"_s, 12.0},
                                     {u"uploader"_s, u"Harbour Workshop"_s},
                                     {u"thumbnail"_s, thumbnail},
                                     {u"formats"_s, formats}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

SampleWindow::SampleWindow(SampleSite &site, const QString &title, const QSize &size,
                           std::chrono::milliseconds settleTime)
    : m_site(site), m_settleTime(settleTime)
{
    QFile json(m_fake.tools.path(u"yt-dlp.json"_s));
    if (json.open(QIODevice::WriteOnly))
        json.write(metadata(title, m_site.address(u"/media/tide-clock.jpg"_s)));
    json.close();
    m_fake.onPreviewLookup(u"echo 'file://%1'"_s.arg(sampleFilm));
    m_fake.onDownload(u"cp '%1' \"$file\"; echo \"filepath:$file\""_s.arg(sampleFilm));
    m_fake.tools.add(u"ffprobe"_s, u"exec /usr/bin/ffprobe \"$@\""_s);
    addRecords();

    ApplicationContext context = m_fake.context();
    context.makePlayer = [this] { return m_players.makePlayer(); };
    context.makeBackgroundPlayer = [this] {
        return m_players.makePlayer(PlayerModule::Purpose::Pictures);
    };
    m_window.emplace(context, m_players);
    m_window->resize(size);
    m_window->show();
    settle();
}

void SampleWindow::addRecords()
{
    QDir().mkpath(m_fake.downloadFolder());
    addRecord(u"Field recording: harbour at dawn, two hours with the rain"_s, 14 * 86'400, true, 1);
    addRecord(u"Talk — how indexes really work under the hood"_s, 3 * 86'400, false, 2);
    addRecord(u"Night trains across the north"_s, 86'400, true, 1);
    addRecord(u"Building a tide clock from scratch"_s, 2 * 3'600, true, 3);
}

void SampleWindow::addRecord(const QString &title, qint64 secondsAgo, bool hasFile, int downloads)
{
    DownloadRecord record;
    record.id = QUuid::createUuid();
    record.title = title;
    record.sourceURL = u"https://video.example/watch?v="_s + QString::number(secondsAgo);
    record.filePath =
        m_fake.downloadFolder() + u'/' + QString(title).replace(u':', u'-') + u" — trimmed.mp4"_s;
    record.durationSeconds = 754;
    record.trimStart = 188;
    record.trimEnd = 475;
    record.createdAt = currentTimestamp().addSecs(-secondsAgo);
    if (hasFile)
        QFile::copy(sampleFilm, record.filePath);
    m_fake.store.add(record);
    for (int count = 0; count < downloads; ++count)
        m_fake.history.recordDownload(record.sourceURL, title, std::nullopt, 754);
}

DownloaderView *SampleWindow::downloader()
{
    return m_window->content().detail().downloader();
}

QList<QWidget *> SampleWindow::inFront() const
{
    QList<QWidget *> others = QApplication::topLevelWidgets();
    others.removeIf([this](QWidget *other) { return other == &*m_window || !other->isVisible(); });
    return others;
}

void SampleWindow::hideTool(const QString &name)
{
    QFile::remove(m_fake.tools.path(name));
    m_fake.toolEnvironment->refresh();
    settle();
}

void SampleWindow::lookUp()
{
    downloader()->setUrlText(address);
    downloader()->fetchInfo(false);
}

void SampleWindow::makeReady()
{
    lookUp();
    settle([this] {
        return downloader()->phase() == Phase::confirming && downloader()->preview().player()
            && !downloader()->preview().isLoading();
    });
    downloader()->confirm();
    settle();
}

void SampleWindow::showRecord(int index)
{
    const QUuid id = m_fake.store.records().at(index).id;
    m_window->content().selection().select(id);
    settle();
}

void SampleWindow::settle(const std::function<bool()> &condition)
{
    if (condition && !QTest::qWaitFor(condition, 20'000))
        throw std::runtime_error("a state was not reached");
    QTest::qWait(static_cast<int>(m_settleTime.count()));
}

} // namespace clipwren::test
