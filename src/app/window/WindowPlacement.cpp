#include "app/window/WindowPlacement.h"

#include "platform/desktop/Preferences.h"
#include "ui/shell/ContentView.h"

#include <QScreen>

#include <optional>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize firstSize(1120, 900);
// What the desktop draws around a window is only known once that is shown.
constexpr QSize frameSize(2, 40);

const QString sizeKey = u"windowSize"_s;
const QString maximizedKey = u"windowMaximized"_s;
const QString sidebarWidthKey = u"sidebarWidth"_s;
const QString sidebarHiddenKey = u"sidebarHidden"_s;
const QString yes = u"true"_s;
const QString no = u"false"_s;

/// Reads "1120x900".
std::optional<QSize> parseSize(const QString &text)
{
    const QStringList parts = text.split(u'x');
    const QSize size(parts.value(0).toInt(), parts.value(1).toInt());
    return parts.size() == 2 && !size.isEmpty() ? std::optional(size) : std::nullopt;
}

} // namespace

QSize boundedWindowSize(const QSize &size, const QSize &available)
{
    return size.boundedTo(available - frameSize);
}

void restorePlacement(QWidget &window, ContentView &content, const Preferences &preferences)
{
    const auto remembered = parseSize(preferences.text(sizeKey).value_or(QString()));
    window.resize(boundedWindowSize(remembered.value_or(firstSize),
                                    window.screen()->availableGeometry().size()));
    if (preferences.text(maximizedKey) == yes)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    if (const int width = preferences.text(sidebarWidthKey).value_or(QString()).toInt(); width > 0)
        content.setSidebarWidth(width);
    if (preferences.text(sidebarHiddenKey) == yes)
        content.toggleSidebar();
}

void rememberPlacement(const QWidget &window, const ContentView &content, Preferences &preferences)
{
    const bool isMaximized = window.isMaximized();
    const QSize size = isMaximized ? window.normalGeometry().size() : window.size();
    preferences.setText(sizeKey, u"%1x%2"_s.arg(size.width()).arg(size.height()));
    preferences.setText(maximizedKey, isMaximized ? yes : no);
    preferences.setText(sidebarWidthKey, QString::number(content.sidebarWidth()));
    preferences.setText(sidebarHiddenKey, content.isSidebarHidden() ? yes : no);
}

} // namespace clipwren
