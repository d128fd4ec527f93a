#pragma once

namespace clipwren {

/// Makes assistive tools see a `LibraryListView` as a list of its header and its items, whose
/// actions are those of the keyboard. Qt's own table of cells hides the header's button and has no
/// actions. Call once or more, before the first list.
void installAccessibleList();

} // namespace clipwren
