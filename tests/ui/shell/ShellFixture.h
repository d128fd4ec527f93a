#pragma once

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "support/FakeTool.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"
#include "support/RecordingDesktop.h"
#include "ui/components/Button.h"

#include <QMenu>
#include <QTest>

namespace clipwren::test {

/// All that the views of the shell need, over fake tools and a temporary library.
class ShellFixture : public LibraryFixture {
protected:
    ShellFixture();

    /// Puts a record, whose file is written when wanted, at the front of the list.
    DownloadRecord addRecord(const QString &title, bool withFile = true);

    FakeTools tools;
    RecordingDesktop desktop;
    DownloadStore store{folder()};
    HistoryStore history{folder()};
    ToolEnvironment environment{{tools.directory()}, ToolEnvironment::Versions::Skip};
};

/// The visible button of that text or, for a lone symbol, tool tip. Null when there is none.
Button *buttonIn(const QWidget &root, const QString &text);
/// Whether a visible label shows that text.
bool shows(const QWidget &root, const QString &text);
/// Shows a view as the active window.
void showWindow(QWidget &view);

/// The menu that is open; fails the test when none is.
QMenu *openMenu();
/// Its items as "text", "(text)" when disabled and "-" for a line.
QStringList itemsOf(const QMenu &menu);
/// Chooses an item of the open menu, which closes it.
void chooseFromMenu(const QString &text);

} // namespace clipwren::test
