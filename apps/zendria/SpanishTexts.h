#pragma once

namespace quorvane::zendria {

/// Has the toolkit's own texts, as those of its file dialog, in Spanish from now on, where its
/// translations are installed (package `qt6-translations-l10n`); False when they aren't. After the
/// application has been made.
bool UseSpanishTexts();

}  // namespace quorvane::zendria
