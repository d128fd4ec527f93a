#include "support/SampleSite.h"

#include <chrono>
#include <stdexcept>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

// Covers the wait for another test that makes the films on a busy machine.
constexpr std::chrono::milliseconds generationLimit = 150s;
constexpr std::chrono::milliseconds answerLimit = 20s;

QString script(const char *name)
{
    return QStringLiteral(CLIPWREN_SAMPLE_SITE_SCRIPTS "/") + QLatin1String(name);
}

QString mediaFolder()
{
    return QStringLiteral(CLIPWREN_SAMPLE_SITE_MEDIA);
}

void generateMedia()
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(script("generate-media"), {mediaFolder()}, QIODevice::ReadOnly);
    if (!process.waitForFinished(static_cast<int>(generationLimit.count()))
        || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error("the sample site's films could not be made");
}

} // namespace

SampleSite::SampleSite()
{
    generateMedia();
    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The site also ends when a killed test closes its input.
    m_server.start(script("serve"), {u"--media"_s, mediaFolder(), u"--until-input-closes"_s});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(static_cast<int>(answerLimit.count())))
            throw std::runtime_error("the sample site does not answer");
    }
    m_base = QString::fromUtf8(m_server.readLine()).trimmed();
}

SampleSite::~SampleSite()
{
    m_server.kill();
    m_server.waitForFinished();
}

} // namespace clipwren::test
