#include "ui/components/PassFocus.h"

#include <QWidget>

namespace clipwren {

void passFocus(const QWidget &leaving, QWidget &heir)
{
    const QWidget *focus = leaving.window()->focusWidget();
    if (focus == &leaving || leaving.isAncestorOf(focus))
        heir.setFocus(Qt::OtherFocusReason);
}

} // namespace clipwren
