#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

namespace clipwren {

/// The pictures of one player, drawn on a thread of its own for whoever shows them.
///
/// Used on the user-interface thread. Lives as long as its player. Pictures do not queue: the
/// newest one replaces those that nobody has asked for.
class VideoOutput : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The size that pictures get from now on, in device pixels: the film is fitted into it, black
    /// around. The picture of the moment is drawn anew. An empty size draws nothing, and is what an
    /// output starts with.
    virtual void setSize(QSize pixels) = 0;
    virtual QSize size() const = 0;
    /// The newest picture, opaque. Null while there is none to show: before the first picture of
    /// a stream, without a stream, and for sound alone. For a moment after a change of the size it
    /// still has the size of before.
    virtual QImage picture() const = 0;

Q_SIGNALS:
    /// `picture()` gives another one, or none any more.
    void pictureChanged();
};

} // namespace clipwren
