#pragma once

#include <QWidget>

class QKeyEvent;
class QLayout;

namespace clipwren {

class Button;
class DownloaderView;
class FilmStrip;
class AnimatedHeight;
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
    /// Does what the keys of an editor do while a range is chosen: I and O set its ends to what the
    /// preview shows, comma and full stop step through its frames, Space plays and pauses, Shift
    /// and Space play the range. False for other keys, and while there is no preview.
    bool pressKey(const QKeyEvent &event);
    /// Where preview and slider are, in logical pixels. Null while they are not shown.
    QRect previewAndSlider() const;

Q_SIGNALS:
    /// The user opened the choice, which grows from now on, until `settled()`.
    void opened();
    void settled();

private:
    QLayout *makeControls();
    QLayout *makeStats();
    QLayout *makeTimeline();
    void renderRange();
    void renderStrip();
    void startHere();
    void endHere();
    void step(int frames);
    void togglePlaying();
    void playClip();
    void reset();
    double duration() const;

    DownloaderView &m_view;
    Switch *m_switch;
    bool m_isToBeOpened = false; // by the user
    QWidget *m_choice; // all that belongs to a range
    AnimatedHeight *m_choiceArea;
    PreviewPane *m_preview;
    TrimSlider *m_slider;
    FilmStrip *m_strip;
    TimeStat *m_start;
    TimeStat *m_end;
    TimeStat *m_clip;
    Button *m_play;
};

} // namespace clipwren
