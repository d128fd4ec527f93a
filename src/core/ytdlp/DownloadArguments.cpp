#include "core/ytdlp/DownloadArguments.h"

#include "core/text/SingleLine.h"
#include "core/ytdlp/DownloadProgress.h"
#include "core/ytdlp/YtDlpService.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// The tool expands environment variables in its template. Escapes each "$NAME" that has a value by
/// a field that prints nothing, behind the "$".
QString withoutVariables(QString text)
{
    static const QRegularExpression variable(u"\\$(\\w+|\\{([^}]*)\\})"_s);
    qsizetype position = text.indexOf(u'$');
    for (; position >= 0; position = text.indexOf(u'$', position + 1)) {
        const auto match = variable.match(text, position, QRegularExpression::NormalMatch,
                                          QRegularExpression::AnchorAtOffsetMatchOption);
        const QString name = match.captured(match.lastCapturedIndex());
        if (match.hasMatch() && qEnvironmentVariableIsSet(name.toUtf8().constData()))
            text.insert(position + 1, u"%(none|)s"_s);
    }
    return text;
}

/// Escapes a text for the tool's output template.
QString escaped(QString text)
{
    return text.replace(u'%', u"%%"_s);
}

QString outputTemplate(const QString &directory, const std::optional<QString> &customFilename)
{
    const QString stem = customFilename && !customFilename->isEmpty()
        ? escaped(fileStem(*customFilename))
        : u"%(title).200B"_s;
    // The whole path is a template, so a "%" in a folder's name is doubled too.
    return withoutVariables(escaped(directory) + u'/' + stem) + u" [%(id)s].%(ext)s"_s;
}

} // namespace

QStringList downloadOptions(const QString &outputDirectory, OutputFormat format,
                            const std::optional<QString> &customFilename, const QString &ffmpegPath)
{
    const QStringList common{
        u"--no-playlist"_s,
        u"--no-warnings"_s,
        u"--newline"_s,
        u"--progress"_s,
        u"--progress-template"_s,
        DownloadProgress::progressTemplate(),
        u"--socket-timeout"_s,
        u"30"_s,
        u"--retries"_s,
        u"3"_s,
        u"--ffmpeg-location"_s,
        ffmpegPath,
        u"-o"_s,
        outputTemplate(outputDirectory, customFilename),
        u"--print"_s,
        u"after_move:filepath:%(filepath)s"_s,
    };
    return common + traits(format).downloadArguments;
}

QString fileStem(const QString &customFilename)
{
    // Cut before a "%" is doubled again: half of a pair would begin a field of the template.
    static const QRegularExpression doubled(u"%%?"_s);
    QString title = singleLine(customFilename);
    // sanitizeFilename() works by grapheme: a "/" with a combining accent would stay a separator.
    title.replace(u'/', u'-');
    QString stem = YtDlpService::sanitizeFilename(title);
    stem = firstBytes(stem.replace(doubled, u"%"_s), maximumStemBytes);
    return stem.isEmpty() ? u"Untitled"_s : stem;
}

QString siteFileStem(const QString &title)
{
    // Whole code points, with no regard to what they make together.
    QByteArray bytes = title.toUtf8().left(maximumStemBytes);
    while (!QUtf8StringView(bytes).isValidUtf8())
        bytes.chop(1);
    static const QRegularExpression timeColon(u"(?<=[0-9]):(?=[0-9])"_s);
    const QString text = QString::fromUtf8(bytes).replace(timeColon, u"_"_s);
    QString stem;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code == u'/' || code == u'\\')
            stem += code == u'/' ? u'\u29f8' : u'\u29f9';
        else if (QStringView(u"\"*:<>?|").contains(character))
            stem += QChar(static_cast<char16_t>(code + 0xfee0)); // its full-width form
        else if (code >= 32 && code != 127)
            stem += character;
    }
    return stem.isEmpty() ? u"_"_s : stem;
}

QString firstBytes(const QString &text, qsizetype maximum)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    while (finder.toNextBoundary() >= 0
           && QStringView(text).first(finder.position()).toUtf8().size() <= maximum)
        end = finder.position();
    return text.first(end);
}

} // namespace clipwren
