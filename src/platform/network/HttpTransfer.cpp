#include "platform/network/HttpTransfer.h"

#include "platform/modules/Module.h"

#include <QDebug>

#include <utility>

namespace clipwren {

std::unique_ptr<HttpTransfer> HttpTransfer::start(const QUrl &address, Callbacks callbacks)
{
    static Module module(QStringLiteral("clipwren_network"));
    const QFunctionPointer function = module.resolve("clipwrenHttpTransfer1");
    if (!function) {
        qWarning().noquote() << "No pictures from the web:" << module.failure();
        return nullptr;
    }
    const auto make = reinterpret_cast<decltype(&clipwrenHttpTransfer1)>(function);
    return std::unique_ptr<HttpTransfer>(make(address, std::move(callbacks)));
}

} // namespace clipwren
