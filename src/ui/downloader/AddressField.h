#pragma once

#include <QWidget>

namespace clipwren {

class Button;
class DownloaderView;
class FieldBox;
class AnimatedHeight;
class Label;

/// Takes the address of a video, and says below why a look-up failed.
class AddressField : public QWidget {
    Q_OBJECT
public:
    explicit AddressField(DownloaderView &view, QWidget *parent = nullptr);

    void render();
    /// True while typing goes into the field.
    bool isEdited() const;

private:
    FieldBox *makeBox();
    QWidget *makeFailure();
    void renderFailure();

    DownloaderView &m_view;
    FieldBox *m_box;
    Button *m_clear;
    Button *m_paste;
    QWidget *m_failure;
    AnimatedHeight *m_failureArea;
    Label *m_failureText;
    Button *m_viewLogs;
};

} // namespace clipwren
