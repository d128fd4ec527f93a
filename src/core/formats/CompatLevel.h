#pragma once

namespace clipwren {

/// Where a file plays.
enum class CompatLevel {
    macNative, ///< H.264: QuickTime and every common editor
    macModern, ///< HEVC: current desktop systems, perhaps not older tools
    needsThirdParty, ///< any other video codec: only players such as VLC or IINA
    proRes, ///< the editing format
    audioOnly,
};

} // namespace clipwren
