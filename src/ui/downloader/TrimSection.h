#pragma once

#include <QWidget>

class QLayout;

namespace clipwren {

class Button;
class DownloaderView;
class Glide;
class PreviewPane;
class Switch;
class TimeStat;
class TrimSlider;

/// Lets the user keep only a part of the video, chosen over its preview.
class TrimSection : public QWidget {
    Q_OBJECT
public:
    explicit TrimSection(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    QLayout *makeControls();
    QLayout *makeStats();
    void renderRange();
    void playClip();
    void reset();

    DownloaderView &m_view;
    Switch *m_switch;
    QWidget *m_choice; // all that belongs to a range
    Glide *m_choiceGlide;
    PreviewPane *m_preview;
    TrimSlider *m_slider;
    TimeStat *m_start;
    TimeStat *m_end;
    TimeStat *m_clip;
    Button *m_play;
};

} // namespace clipwren
