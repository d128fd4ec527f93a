#include "workflow/download/FormatChoice.h"

#include "platform/desktop/Preferences.h"
#include "workflow/download/OfferedFormats.h"

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const QString key = u"outputFormat"_s;

} // namespace

QString FormatChoice::rawValue() const
{
    if (m_given)
        return clipwren::rawValue(*m_given);
    return m_preferences.text(key).value_or(clipwren::rawValue(OutputFormat::bestResolution));
}

void FormatChoice::setRawValue(const QString &rawValue)
{
    m_given.reset();
    m_preferences.setText(key, rawValue);
}

FormatOption FormatChoice::selected(const std::optional<VideoInfo> &info) const
{
    const QList<FormatOption> options = offeredFormats(info);
    const OutputFormat stored = outputFormatFrom(rawValue());
    const auto match = std::find_if(options.begin(), options.end(),
                                    [&](const auto &option) { return option.kind == stored; });
    return match != options.end() ? *match : options.first();
}

} // namespace clipwren
