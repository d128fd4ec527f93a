#pragma once

namespace clipwren {

/// Where one download stands.
enum class Phase {
    input, ///< an address is awaited
    fetching, ///< the video is being looked up
    confirming, ///< the user is asked whether it is the right video
    ready, ///< title, format and range can be chosen
    downloading,
    processing, ///< the download is being cut or converted
    done, ///< the file is recorded
};

/// While a tool runs for the user, who then cannot edit the address.
constexpr bool isBusy(Phase phase)
{
    return phase == Phase::fetching || phase == Phase::downloading || phase == Phase::processing;
}

} // namespace clipwren
