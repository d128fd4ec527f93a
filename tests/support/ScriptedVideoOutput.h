#pragma once

#include "platform/media/VideoOutput.h"

namespace clipwren::test {

/// Pictures of one colour each, drawn when the test says so.
class ScriptedVideoOutput : public VideoOutput {
public:
    using VideoOutput::VideoOutput;

    void draw(const QColor &color)
    {
        m_picture = QImage(m_size, QImage::Format_RGB32);
        m_picture.fill(color);
        Q_EMIT pictureChanged();
    }

    void setSize(QSize pixels) override { m_size = pixels; }
    QSize size() const override { return m_size; }
    QImage picture() const override { return m_picture; }

private:
    QSize m_size;
    QImage m_picture;
};

} // namespace clipwren::test
