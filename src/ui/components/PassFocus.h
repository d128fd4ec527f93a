#pragma once

class QWidget;

namespace clipwren {

/// Gives the focus, when it lies within `leaving`, to `heir`. To be called before a widget is
/// hidden: by itself, focus would go where Tab leads, and look as if keys had led it there.
void passFocus(const QWidget &leaving, QWidget &heir);

} // namespace clipwren
