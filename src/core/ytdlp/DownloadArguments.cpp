#include "core/ytdlp/DownloadArguments.h"

#include "core/text/SingleLine.h"
#include "core/ytdlp/DownloadProgress.h"
#include "core/ytdlp/YtDlpService.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace clipwren {
namespace {

/// The tool puts the values of environment variables into its template. Of a "$NAME" that has a
/// value, the name is set apart by a field that prints nothing.
QString withoutVariables(QString text)
{
    static const QRegularExpression variable(QStringLiteral("\\$(\\w+|\\{([^}]*)\\})"));
    qsizetype position = text.indexOf(u'$');
    for (; position >= 0; position = text.indexOf(u'$', position + 1)) {
        const auto match = variable.match(text, position, QRegularExpression::NormalMatch,
                                          QRegularExpression::AnchorAtOffsetMatchOption);
        const QString name = match.captured(match.lastCapturedIndex());
        if (match.hasMatch() && qEnvironmentVariableIsSet(name.toUtf8().constData()))
            text.insert(position + 1, QStringLiteral("%(none|)s"));
    }
    return text;
}

/// As the tool's template writes a text.
QString escaped(QString text)
{
    return text.replace(u'%', QStringLiteral("%%"));
}

QString outputTemplate(const QString &directory, const std::optional<QString> &customFilename)
{
    const QString stem = customFilename && !customFilename->isEmpty()
        ? escaped(fileStem(*customFilename))
        : QStringLiteral("%(title).200B");
    // The whole path is a template, so a "%" in a folder's name is doubled too.
    return withoutVariables(escaped(directory) + u'/' + stem) + QStringLiteral(" [%(id)s].%(ext)s");
}

} // namespace

QStringList downloadArguments(const QString &url, const QString &outputDirectory,
                              OutputFormat format, const std::optional<QString> &customFilename,
                              const QString &ffmpegPath)
{
    const QStringList common{
        QStringLiteral("--no-playlist"),
        QStringLiteral("--no-warnings"),
        QStringLiteral("--newline"),
        QStringLiteral("--progress"),
        QStringLiteral("--progress-template"),
        DownloadProgress::progressTemplate(),
        QStringLiteral("--socket-timeout"),
        QStringLiteral("30"),
        QStringLiteral("--retries"),
        QStringLiteral("3"),
        QStringLiteral("--ffmpeg-location"),
        ffmpegPath,
        QStringLiteral("-o"),
        outputTemplate(outputDirectory, customFilename),
        QStringLiteral("--print"),
        QStringLiteral("after_move:filepath:%(filepath)s"),
    };
    return common + traits(format).downloadArguments + QStringList{QStringLiteral("--"), url};
}

QString fileStem(const QString &customFilename)
{
    // Cut before a "%" is doubled again: half of a pair would begin a field of the template.
    static const QRegularExpression doubled(QStringLiteral("%%?"));
    QString title = singleLine(customFilename);
    // As part of a longer character, with an accent, it would part folders all the same.
    title.replace(u'/', u'-');
    QString stem = YtDlpService::sanitizeFilename(title);
    stem = firstBytes(stem.replace(doubled, QStringLiteral("%")), maximumStemBytes);
    return stem.isEmpty() ? QStringLiteral("Untitled") : stem;
}

QString siteFileStem(const QString &title)
{
    // Whole code points, with no regard to what they make together.
    QByteArray bytes = title.toUtf8().left(maximumStemBytes);
    while (!QUtf8StringView(bytes).isValidUtf8())
        bytes.chop(1);
    static const QRegularExpression timeColon(QStringLiteral("(?<=[0-9]):(?=[0-9])"));
    const QString text = QString::fromUtf8(bytes).replace(timeColon, QStringLiteral("_"));
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
    return stem.isEmpty() ? QStringLiteral("_") : stem;
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
