#pragma once

#include <QDialog>

#include <functional>

namespace clipwren {

/// The output of a tool over the main window, to read, select and copy.
///
/// Window modal. "Done", Escape and closing it call `onDismiss`; it stays until it is deleted.
class LogViewer : public QDialog {
    Q_OBJECT
public:
    LogViewer(const QString &title, const QString &log, std::function<void()> onDismiss,
              QWidget *parent);

    void reject() override { m_onDismiss(); }

private:
    QWidget *makeHeader(const QString &log);

    std::function<void()> m_onDismiss;
};

} // namespace clipwren
