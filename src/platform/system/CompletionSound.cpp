#include "platform/system/CompletionSound.h"

#include <QFile>
#include <QTemporaryFile>

#include <canberra.h>

namespace clipwren {

CompletionSound::CompletionSound() = default;
CompletionSound::~CompletionSound() = default;

void CompletionSound::play()
{
    if (!m_context) {
        ca_context *context = nullptr;
        if (::ca_context_create(&context) != CA_SUCCESS)
            return;
        m_context.reset(context);
        ::ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Clipwren",
                                  CA_PROP_APPLICATION_ID, "clipwren", nullptr);
        // The sound server reads files, and ours lies inside the program.
        QFile sound(QStringLiteral(":/sounds/complete.oga"));
        m_file.reset(QTemporaryFile::createNativeFile(sound));
    }
    if (!m_file)
        return;
    ::ca_context_play(m_context.get(), 0, CA_PROP_MEDIA_FILENAME,
                      QFile::encodeName(m_file->fileName()).constData(), CA_PROP_MEDIA_ROLE,
                      "event", CA_PROP_EVENT_DESCRIPTION, "Download complete", nullptr);
}

void CompletionSound::ContextDeleter::operator()(ca_context *context) const
{
    ::ca_context_destroy(context);
}

} // namespace clipwren
