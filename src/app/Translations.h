#pragma once

namespace clipwren {

/// Speaks the first of the user's languages that there is a translation for, else English. Needs
/// the application object, and goes with it.
void installTranslations();

} // namespace clipwren
