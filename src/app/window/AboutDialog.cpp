#include "app/window/AboutDialog.h"

#include "core/process/ToolEnvironment.h"
#include "core/ytdlp/DownloaderAge.h"
#include "ui/components/Label.h"

#include <QFormLayout>
#include <QVBoxLayout>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

QString versionText(const ToolEnvironment::Tool &tool, const QDate &today)
{
    if (!tool.path)
        return AboutDialog::tr("Not installed");
    if (!tool.version || tool.version->isEmpty())
        return *tool.path;
    // Of a version that is a date, as yt-dlp's.
    const std::optional<QString> age = ageText(*tool.version, today);
    return age ? u"%1 (%2)"_s.arg(*tool.version, *age) : *tool.version;
}

} // namespace

AboutDialog::AboutDialog(const ToolEnvironment &tools, QWidget *parent, const QDate &today)
    : InformationDialog(tr("About Clipwren"), u"Clipwren"_s, 6, parent)
{
    auto *version = new Label(Theme::TextStyle::Callout, Theme::Color::Secondary,
                              tr("Version %1").arg(QLatin1StringView(CLIPWREN_VERSION)));
    version->setSelectable(true);
    column()->addWidget(version);
    column()->addSpacing(12);

    auto *form = new QFormLayout;
    form->setHorizontalSpacing(24);
    form->setVerticalSpacing(6);
    for (const ToolEnvironment::Tool &tool : tools.tools()) {
        auto *value = new Label(Theme::TextStyle::MonospacedCaption, Theme::Color::Secondary,
                                versionText(tool, today));
        value->setSelectable(true);
        form->addRow(new Label(Theme::TextStyle::Label, Theme::Color::Text, tool.name), value);
    }
    column()->addLayout(form);
    column()->addSpacing(16);

    addCloseButton();
}

} // namespace clipwren
