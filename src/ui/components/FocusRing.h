#pragma once

#include "ui/components/Theme.h"

#include <QObject>
#include <QPointer>

class QFocusFrame;
class QWidget;

namespace clipwren {

/// A ring around a control while it has the keyboard's attention, drawn outside its edge.
///
/// Appears when focus came by Tab or a shortcut, or by itself behind a key, so that clicks leave no
/// ring behind. The ring belongs to the control that it is installed on and takes no room in its
/// layout.
class FocusRing : public QObject {
    Q_OBJECT
public:
    enum class When {
        Keyboard, ///< focus came from the keyboard
        Always, ///< for text fields, which take keys however they got focus
    };

    /// Watches `control`. The ring lies around `framed`, by default the control itself, whose
    /// corners have `radius` logical pixels.
    static FocusRing *install(QWidget *control, qreal radius, When when = When::Keyboard,
                              QWidget *framed = nullptr);

    /// Another colour than the usual one, as around a field whose text cannot be used.
    void setColor(Theme::Color color);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FocusRing(QWidget *control, QWidget *framed, qreal radius, When when);
    void showFrame();

    QPointer<QWidget> m_framed;
    QPointer<QFocusFrame> m_frame;
    qreal m_radius;
    Theme::Color m_color = Theme::Color::FocusRing;
    When m_when;
    bool m_byKeyboard = false;
};

/// Gives the focus, when it lies within `leaving`, to `heir`. To be called before a widget is
/// hidden: by itself, focus would go where Tab leads, with a ring as if by a key.
void passFocus(const QWidget &leaving, QWidget &heir);

} // namespace clipwren
