#pragma once

#include "ui/components/DetailScreen.h"

class QVBoxLayout;

namespace clipwren {

class Desktop;
class ToolEnvironment;
class ToolStatusRow;

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
    QWidget *makeStack();
    QWidget *makeStatusBox();
    QWidget *makeInstallBlock();
    Button *makeRecheckButton();
    void render();

    ToolEnvironment &m_tools;
    Desktop &m_desktop;
    ToolStatusRow *m_ytDlp;
    ToolStatusRow *m_ffmpeg;
    ToolStatusRow *m_ffprobe;
    QVBoxLayout *m_stack = nullptr;
};

} // namespace clipwren
