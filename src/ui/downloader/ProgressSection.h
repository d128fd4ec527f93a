#pragma once

#include <QWidget>

#include <functional>

namespace clipwren {

class DownloaderView;
class Label;
class LinearProgress;

/// How far the download or conversion is.
class ProgressSection : public QWidget {
    Q_OBJECT
public:
    explicit ProgressSection(DownloaderView &view, QWidget *parent = nullptr);

    void render();
    /// As in "42%".
    QString percentage() const;

private:
    DownloaderView &m_view;
    Label *m_heading;
    Label *m_percentage;
    LinearProgress *m_bar;
    Label *m_status;
};

/// Says that the file is saved, and where. `reveal` opens the folder.
QWidget *makeSuccessCard(DownloaderView &view, const QString &downloadFolder,
                         std::function<void()> reveal);

} // namespace clipwren
