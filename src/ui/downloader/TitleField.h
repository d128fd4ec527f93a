#pragma once

#include <QWidget>

namespace clipwren {

class Button;
class DownloaderView;
class Label;
class FieldBox;

/// Takes the title under which the file is saved, and shows the name that it gets.
class TitleField : public QWidget {
    Q_OBJECT
public:
    explicit TitleField(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    FieldBox *m_box;
    Button *m_reset;
    Label *m_fileName;
};

} // namespace clipwren
