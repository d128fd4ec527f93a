#include "support/FakeDownloader.h"

#include <QTest>

namespace clipwren::test {

using namespace Qt::StringLiterals;

FakeDownloader::FakeDownloader()
{
    tools.add(u"yt-dlp"_s,
              u"case \"$1\" in\n-J) . \"$0.lookup\" ;;\n-g) . \"$0.preview\" ;;\n--version) echo "
              u"2024.08.06 ;;\n*)\n"
              "ext=mp4; template=\n"
              "while [ $# -gt 0 ]; do\n"
              "  case \"$1\" in -o) template=$2; shift ;; mp3) ext=mp3 ;; esac; shift\n"
              "done\n"
              "file=$(printf '%s' \"$template\" | sed -e 's/%(title).200B/Talk/'"
              " -e 's/%(id)s/id1/' -e \"s/%(ext)s/$ext/\" -e 's/%%/%/g')\n"
              ". \"$0.download\"\n;;\nesac"_s);
    tools.write(u"yt-dlp.json"_s, uR"({"title":"Talk","duration":60.5,"uploader":"Someone",
        "thumbnail":"https://site.example/t.jpg","formats":[
        {"vcodec":"vp9","acodec":"none","height":2160,"ext":"webm"},
        {"vcodec":"avc1.64001F","acodec":"none","height":1080,"ext":"mp4"}]})"_s);
    onLookup(u"echo '[site] abc: Downloading webpage' >&2; cat \"$0.json\""_s);
    onPreviewLookup(u"echo https://stream.example/preview.mp4"_s);
    onDownload(defaultDownload());
    onConvert(u"echo out_time_us=2500000; echo new > \"$output\"; echo progress=end"_s);
    onProbe(u"vp9"_s, 2160);
    toolEnvironment.emplace(QStringList{tools.directory()}, ToolEnvironment::Versions::Skip);
}

void FakeDownloader::onConvert(const QString &script)
{
    // Asked for its version, it would write a file of that name.
    tools.add(u"ffmpeg"_s,
              u"[ \"$1\" != -version ] || exit 0\nfor output; do :; done\n"_s + script);
}

void FakeDownloader::onProbe(const QString &codec, int height, const QString &container,
                             double seconds)
{
    tools.add(u"ffprobe"_s,
              u"case \"$*\" in *nokey=1*) echo %4 ;; *) echo '{\"streams\":"
              "[{\"codec_type\":\"video\",\"codec_name\":\"%1\",\"height\":%2,\"width\":10,"
              "\"duration\":\"%4\"}],\"format\":{\"format_name\":\"%3\",\"duration\":\"%4\"}}' ;;"
              " esac"_s.arg(codec)
                  .arg(height)
                  .arg(container)
                  .arg(seconds));
}

QString FakeDownloader::defaultDownload()
{
    return u"test -e \"$file\" || echo old > \"$file\"\n"
           "echo '  42.3%||   1.20MiB/s||00:10'\n"
           "echo \"filepath:$file\""_s;
}

ApplicationContext FakeDownloader::context()
{
    const auto makePlayer = [this] {
        auto player = std::make_unique<ScriptedPlayer>(playerLog);
        lastPlayer = player.get();
        return player;
    };
    return {.store = store,
            .history = history,
            .tools = *toolEnvironment,
            .pendingFetch = pendingFetch,
            .desktop = desktop,
            .preferences = preferences,
            .makePlayer = makePlayer,
            .downloadDirectory = downloadFolder(),
            .today = [this] { return today; }};
}

bool reaches(DownloaderView &view, Phase phase)
{
    return QTest::qWaitFor([&] { return view.phase() == phase; }, 10'000);
}

} // namespace clipwren::test
