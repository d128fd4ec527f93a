#pragma once

#include "support/FakeDownloader.h"
#include "support/Printing.h"

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
    void makeReady()
    {
        view->resetAll();
        lookUp();
        view->confirm();
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
    QStringList files() const { return QDir(fake.downloadFolder()).entryList(QDir::Files); }
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
