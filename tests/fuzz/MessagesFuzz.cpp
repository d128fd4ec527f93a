#include "app/instance/InstanceChannel.h"
#include "core/json/JsonObjectReader.h"
#include "fuzz/Fuzz.h"

using namespace clipwren;

/// What arrives at the socket of the window that is open; what is read is what was sent.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        const auto message = InstanceMessage::fromJson(fuzz::bytesOf(data, size));
        const QByteArray json = message.toJson();
        fuzz::require(!json.contains('\n'));
        fuzz::require(InstanceMessage::fromJson(json).toJson() == json);
    } catch (const DecodingError &error) {
        fuzz::require(!error.errorDescription().isEmpty());
    }
    return 0;
}
