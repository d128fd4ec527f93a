#pragma once

#include "app/instance/InstanceChannel.h"
#include "ui/shell/ContentView.h"

#include <QWidget>

class QDialog;

namespace clipwren {

class PlayerModule;

/// The one window of the application, with its menu.
class MainWindow : public QWidget {
    Q_OBJECT

public:
    /// What is given must outlive the window.
    MainWindow(const ApplicationContext &context, PlayerModule &players);

    ContentView &content() { return *m_content; }
    /// Shows and activates the window for a later start of the application, and does there what it
    /// asks for.
    void comeToFront(const InstanceMessage::Show &request);

protected:
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void fillMenu();
    void showTitle();
    static void openDialog(QDialog *dialog);

    const ToolEnvironment &m_tools;
    Preferences &m_preferences;
    ContentView *m_content;
};

} // namespace clipwren
