#include "platform/system/CompletionSound.h"

#include "core/Logging.h"

#include <QFile>
#include <QLibrary>
#include <QTemporaryFile>

#include <canberra.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// The functions we use of libcanberra, which is loaded for the first sound: most starts of the
/// program make none.
class Canberra {
public:
    bool isLoaded() const { return create && destroy && changeProps && play; }

private:
    QLibrary m_library{u"canberra"_s, 0};

    template <typename Function> Function function(const char *name)
    {
        return reinterpret_cast<Function>(m_library.resolve(name));
    }

public:
    const decltype(&::ca_context_create) create =
        function<decltype(&::ca_context_create)>("ca_context_create");
    const decltype(&::ca_context_destroy) destroy =
        function<decltype(&::ca_context_destroy)>("ca_context_destroy");
    const decltype(&::ca_context_change_props) changeProps =
        function<decltype(&::ca_context_change_props)>("ca_context_change_props");
    const decltype(&::ca_context_play) play =
        function<decltype(&::ca_context_play)>("ca_context_play");
};

const Canberra &canberra()
{
    static const Canberra library;
    return library;
}

} // namespace

CompletionSound::CompletionSound() = default;
CompletionSound::~CompletionSound() = default;

void CompletionSound::play()
{
    if (!canberra().isLoaded()) {
        qCInfo(desktopLog) << "No sound: libcanberra is not installed";
        return;
    }
    if (!m_context) {
        ca_context *context = nullptr;
        if (canberra().create(&context) != CA_SUCCESS) {
            qCInfo(desktopLog) << "No sound: libcanberra cannot start";
            return;
        }
        m_context.reset(context, canberra().destroy);
        canberra().changeProps(context, CA_PROP_APPLICATION_NAME, "Clipwren",
                               CA_PROP_APPLICATION_ID, "clipwren", nullptr);
        // The sound server reads files, and ours lies inside the program.
        QFile sound(u":/sounds/complete.oga"_s);
        m_file.reset(QTemporaryFile::createNativeFile(sound));
    }
    if (!m_file)
        return;
    canberra().play(m_context.get(), 0, CA_PROP_MEDIA_FILENAME,
                    QFile::encodeName(m_file->fileName()).constData(), CA_PROP_MEDIA_ROLE, "event",
                    CA_PROP_EVENT_DESCRIPTION, "Download complete", nullptr);
}

} // namespace clipwren
