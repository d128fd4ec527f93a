#pragma once

#include <QDate>
#include <QDialog>

namespace clipwren {

class ToolEnvironment;

/// Names the application, its version, and the tools it found with theirs, and the age of yt-dlp,
/// which has to be young.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    /// `tools` must outlive the dialog.
    explicit AboutDialog(const ToolEnvironment &tools, QWidget *parent = nullptr,
                         const QDate &today = QDate::currentDate());

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
