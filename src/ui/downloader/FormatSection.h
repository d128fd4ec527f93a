#pragma once

#include <QWidget>

namespace clipwren {

class Banner;
class DownloaderView;
class AnimatedHeight;
class IconView;
class Picker;
class Label;

/// Chooses the output format, and warns of one that common players do not open.
class FormatSection : public QWidget {
    Q_OBJECT
public:
    explicit FormatSection(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    IconView *m_icon;
    Picker *m_picker;
    Label *m_subtitle;
    Banner *m_warning;
    AnimatedHeight *m_details;
};

} // namespace clipwren
