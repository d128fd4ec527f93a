#pragma once

#include "app/window/InformationDialog.h"

#include <QDate>

namespace clipwren {

class ToolEnvironment;

/// Names the application, its version, and the tools it found with theirs, and the age of yt-dlp,
/// which has to be young.
class AboutDialog : public InformationDialog {
    Q_OBJECT

public:
    /// `tools` must outlive the dialog.
    explicit AboutDialog(const ToolEnvironment &tools, QWidget *parent = nullptr,
                         const QDate &today = QDate::currentDate());
};

} // namespace clipwren
