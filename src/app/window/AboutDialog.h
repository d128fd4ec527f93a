#pragma once

#include <QDialog>

namespace clipwren {

class ToolEnvironment;

/// Names the application, its version, and the tools it found with theirs.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    /// `tools` must outlive the dialog.
    explicit AboutDialog(const ToolEnvironment &tools, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
