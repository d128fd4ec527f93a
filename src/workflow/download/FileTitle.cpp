#include "workflow/download/FileTitle.h"

#include "core/text/SingleLine.h"
#include "core/ytdlp/DownloadArguments.h"

namespace clipwren {

using namespace Qt::StringLiterals;

QString FileTitle::original() const
{
    return singleLine(site.value_or(QString()));
}

QString FileTitle::effective() const
{
    const QString typed = custom.trimmed();
    return typed.isEmpty() ? original() : typed;
}

std::optional<QString> FileTitle::override() const
{
    const QString title = effective();
    // yt-dlp would keep some line breaks of a site's title, and may make too long a name of it.
    const bool isForTool = title == site && siteFileStem(title).toUtf8().size() <= maximumStemBytes;
    return title.isEmpty() || isForTool ? std::nullopt : std::optional(title);
}

QString FileTitle::fileName(OutputFormat format) const
{
    const auto title = override();
    const QString stem = title ? fileStem(*title) : siteFileStem(site.value_or(u"Untitled"_s));
    return stem + u" [<id>]."_s + traits(format).extension;
}

} // namespace clipwren
