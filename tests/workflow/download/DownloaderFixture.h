#pragma once

#include "support/FakeDownloader.h"
#include "support/Files.h"
#include "support/Printing.h"

#include <QFileInfo>
#include <QTest>

#include <gmock/gmock.h>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// A downloader over fake tools.
class DownloaderFixture : public testing::Test {
protected:
    ~DownloaderFixture() override
    {
        view.reset();
        settle();
    }

    void startLookup()
    {
        view->setUrlText(address);
        view->fetchInfo(false);
    }
    void lookUp()
    {
        startLookup();
        ASSERT_TRUE(reaches(*view, Phase::confirming));
    }
    /// Looks the video up anew and confirms it, to be saved in that format or in the last one.
    void makeReady(const QString &format = {})
    {
        view->resetAll();
        lookUp();
        view->confirm();
        if (!format.isEmpty())
            view->setOutputFormatRaw(format);
    }
    /// Makes one download, of a range where one is given, and returns its record.
    DownloadRecord download(const std::optional<TrimRange> &trim = {})
    {
        view->setTrimEnabled(trim.has_value());
        if (trim)
            view->setTrimRange(trim->start, trim->end);
        view->start();
        EXPECT_TRUE(reaches(*view, Phase::done));
        return fake.store.records().value(0);
    }
    QString downloadedName(const std::optional<TrimRange> &trim = {})
    {
        return QFileInfo(download(trim).filePath).fileName();
    }
    /// Starts a download that is to end without a file, and returns what is said of it.
    QString failure()
    {
        view->start();
        EXPECT_TRUE(reaches(*view, Phase::ready));
        return view->errorMessage().value_or(QString());
    }
    bool startAndProgress()
    {
        view->start();
        return QTest::qWaitFor([&] { return view->downloadProgress() > 0; });
    }
    QString cancel()
    {
        view->cancelDownload();
        EXPECT_TRUE(reaches(*view, Phase::ready));
        return view->errorMessage().value_or(QString());
    }
    /// Removes all files and records.
    void startOver()
    {
        QDir(fake.downloadFolder()).removeRecursively();
        fake.store.clear();
    }

    QString path(const QString &name) const { return fake.downloadFolder() + u'/' + name; }
    QByteArray read(const QString &name) const { return readFile(path(name)); }
    QStringList files() const { return QDir(fake.downloadFolder()).entryList(QDir::Files); }
    /// Hidden ones and folders too.
    QStringList allFiles() const
    {
        return QDir(fake.downloadFolder())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// Lets everything that was started come to its end.
    static void settle()
    {
        EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
        QCoreApplication::processEvents();
    }

    const QString address = u"https://site.example/watch?v=1"_s;
    FakeDownloader fake;
    std::vector<QUuid> completed;
    std::optional<DownloaderView> view{std::in_place, fake.context(),
                                       [this](QUuid id) { completed.push_back(id); }};
};

} // namespace clipwren::test
