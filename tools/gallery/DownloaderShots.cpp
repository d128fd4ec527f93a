#include "DownloaderShots.h"

#include "support/FakeDownloader.h"
#include "ui/downloader/DownloaderScreen.h"

#include <QDir>
#include <QPainter>
#include <QTest>
#include <QVBoxLayout>

namespace clipwren::gallery {

namespace {

using namespace Qt::StringLiterals;
using test::FakeDownloader;
using test::reaches;

const QString clockVideo = u"\"title\":\"Building a tide clock from scratch\",\"duration\":754,"
                           "\"uploader\":\"Harbour Workshop\""_s;
const QString longVideo =
    u"\"title\":\"The complete and unabridged story of how one small workshop by the harbour "
    "built a tide clock from scratch, in seventeen chapters, with all of its failures\","
    "\"duration\":37230,\"uploader\":\"The Harbour Workshop and Tidal Instrument Company of the "
    "Northern Isles\""_s;
const QString hebrewVideo =
    u"\"title\":\"\u05E9\u05E2\u05D5\u05DF \u05D2\u05D0\u05D5\u05EA \u05DE\u05D0\u05E4\u05E1\","
    "\"duration\":754,\"uploader\":\"\u05D4\u05E0\u05DE\u05DC\""_s;

QString answer(const QString &fields)
{
    return u"echo '{%1,\"formats\":["
           "{\"vcodec\":\"vp9\",\"acodec\":\"none\",\"height\":2160,\"ext\":\"webm\"},"
           "{\"vcodec\":\"avc1.64001F\",\"acodec\":\"none\",\"height\":1080,\"ext\":\"mp4\"}]}'"_s
               .arg(fields);
}

/// Stands in for the player, which needs a stream.
class PaintedPreview : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        QRadialGradient light(rect().center(), width() / 2.0);
        light.setColorAt(0, QColor(0x30, 0x50, 0x70));
        light.setColorAt(1, QColor(0x0A, 0x0E, 0x14));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(light);
        painter.drawRoundedRect(rect(), 12, 12);
    }
};

class DownloaderPage : public QWidget {
public:
    using Reach = std::function<void(FakeDownloader &, DownloaderView &)>;

    DownloaderPage(QSize size, const Reach &reach)
        : m_size(size), m_view(m_fake.environment()),
          m_screen(
              m_view, m_fake.desktop, QDir::homePath() + u"/Movies/Clipwren"_s,
              [](PreviewPlayerController &, QWidget *parent) { return new PaintedPreview(parent); })
    {
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(&m_screen);
        m_fake.onLookup(answer(clockVideo));
        reach(m_fake, m_view);
    }
    ~DownloaderPage() override { m_screen.setParent(nullptr); }

    QSize sizeHint() const override { return m_size; }

private:
    QSize m_size;
    FakeDownloader m_fake;
    DownloaderView m_view;
    DownloaderScreen m_screen;
};

/// A state that does not come shows in the picture.
template <typename Condition> void waitFor(Condition condition)
{
    [[maybe_unused]] const bool came = QTest::qWaitFor(condition);
}

void lookUp(DownloaderView &view, Phase phase = Phase::confirming)
{
    view.setUrlText(u"https://video.example/watch?v=tide-clock-01"_s);
    view.fetchInfo(false);
    reaches(view, phase);
}

void confirm(DownloaderView &view)
{
    lookUp(view);
    view.confirm();
}

struct State {
    QString name;
    DownloaderPage::Reach reach;
};

QList<State> states()
{
    return {
        {u"input"_s, [](FakeDownloader &, DownloaderView &) {}},
        {u"invalid"_s,
         [](FakeDownloader &, DownloaderView &view) {
             view.setUrlText(u"video.example/watch"_s);
             view.fetchInfo(false);
         }},
        {u"failed"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onLookup(u"echo '[debug] much' >&2; echo 'ERROR: Unsupported URL: "
                           "https://video.example/watch?v=tide-clock-01&list=a-very-long-list-of-"
                           "videos-about-clocks' >&2; exit 1"_s);
             lookUp(view, Phase::input);
             waitFor([&] { return view.fetchError().has_value(); });
         }},
        {u"fetching"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onLookup(u"echo '[site] abc: Downloading webpage' >&2; exec sleep 60"_s);
             lookUp(view, Phase::fetching);
             waitFor([&] { return !view.fetchStatus().isEmpty(); });
         }},
        {u"confirming"_s, [](FakeDownloader &, DownloaderView &view) { lookUp(view); }},
        {u"confirming-long"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onLookup(answer(longVideo));
             lookUp(view);
         }},
        {u"ready"_s, [](FakeDownloader &, DownloaderView &view) { confirm(view); }},
        {u"ready-long"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onLookup(answer(longVideo));
             confirm(view);
         }},
        {u"ready-hebrew"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onLookup(answer(hebrewVideo));
             confirm(view);
         }},
        {u"ready-audio"_s,
         [](FakeDownloader &, DownloaderView &view) {
             view.setOutputFormatRaw(u"audioMP3"_s);
             confirm(view);
         }},
        {u"trim"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             view.setOutputFormatRaw(u"macCompatible"_s);
             confirm(view);
             view.setTrimEnabled(true);
             view.setTrimRange(188, 475);
             waitFor([&] { return fake.lastPlayer != nullptr; });
         }},
        {u"trim-failed"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             view.setOutputFormatRaw(u"macCompatible"_s);
             confirm(view);
             view.setTrimEnabled(true);
             waitFor([&] { return fake.lastPlayer != nullptr; });
             fake.lastPlayer->fail(u"The server answered “403 Forbidden”."_s);
         }},
        {u"downloading"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onDownload(u"echo '  42.3%||   1.20MiB/s||00:10'; exec sleep 60"_s);
             confirm(view);
             view.start();
             waitFor([&] { return view.downloadProgress() > 0.4; });
         }},
        {u"download-failed"_s,
         [](FakeDownloader &fake, DownloaderView &view) {
             fake.onDownload(u"echo 'ERROR: unable to download video data' >&2; exit 1"_s);
             confirm(view);
             view.start();
             reaches(view, Phase::ready);
         }},
        {u"done"_s,
         [](FakeDownloader &, DownloaderView &view) {
             confirm(view);
             view.start();
             reaches(view, Phase::done);
         }},
    };
}

} // namespace

QList<DownloaderShot> downloaderShots()
{
    struct Size {
        QString name;
        QSize size;
    };
    QList<DownloaderShot> shots;
    for (const Size &size : {Size{u"wide"_s, {840, 900}}, Size{u"narrow"_s, {540, 468}}}) {
        for (const State &state : states()) {
            shots.append({u"downloader-%1-%2"_s.arg(state.name, size.name),
                          [size, state] { return new DownloaderPage(size.size, state.reach); }});
        }
    }
    return shots;
}

} // namespace clipwren::gallery
