#pragma once

#include <QSize>

class QWidget;

namespace clipwren {

class ContentView;
class Preferences;

/// Gives a window that is not shown yet the size, and the sidebar in it the width, that they had
/// when they were last remembered, or else the first ones.
void restorePlacement(QWidget &window, ContentView &content, const Preferences &preferences);

/// Remembers size, sidebar, and whether the window is maximised.
void rememberPlacement(const QWidget &window, const ContentView &content, Preferences &preferences);

/// The size, or what a screen with so much room has for a window with its frame.
QSize boundedWindowSize(const QSize &size, const QSize &available);

} // namespace clipwren
