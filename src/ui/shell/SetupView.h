#pragma once

#include "ui/components/DetailScreen.h"

class QVBoxLayout;

namespace clipwren {

class Desktop;
class ToolEnvironment;

/// Shown while one of the tools is missing: which, how to install it, and a button to look again.
class SetupView : public DetailScreen {
    Q_OBJECT

public:
    /// Both must outlive the view.
    SetupView(ToolEnvironment &tools, Desktop &desktop, QWidget *parent = nullptr);

    QString barTitle() const override { return {}; }
    QList<Button *> barButtons() const override { return {}; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    class StatusRow;

    QWidget *makeStack();
    QWidget *makeStatusBox();
    QWidget *makeInstallBlock();
    Button *makeRecheckButton();
    void render();

    ToolEnvironment &m_tools;
    Desktop &m_desktop;
    QList<StatusRow *> m_rows; // as the tools are listed
    QVBoxLayout *m_stack = nullptr;
};

} // namespace clipwren
