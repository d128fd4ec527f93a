#pragma once

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "support/FakeTool.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/components/Button.h"

#include <QTest>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// All that the views of the shell need, over fake tools and a temporary library.
class ShellFixture : public LibraryFixture {
protected:
    ShellFixture()
    {
        for (const char *name : {"yt-dlp", "ffmpeg", "ffprobe"})
            tools.add(QString::fromLatin1(name), {});
        environment.refresh();
    }

    /// Puts a record, whose file is written when wanted, at the front of the list.
    DownloadRecord addRecord(const QString &title, bool withFile = true)
    {
        DownloadRecord record = bareRecord(title);
        record.filePath = path(title + u".mp4"_s);
        if (withFile)
            writeFile(title + u".mp4"_s, "film");
        store.add(record);
        return store.records().constFirst();
    }
    static Button *buttonIn(const QWidget &root, const QString &name)
    {
        return shown<Button>(root, name);
    }

    FakeTools tools;
    RecordingDesktop desktop;
    DownloadStore store{folder()};
    HistoryStore history{folder()};
    ToolEnvironment environment{{tools.directory()}, ToolEnvironment::Versions::Skip};
};

} // namespace clipwren::test
