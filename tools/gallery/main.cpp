#include "Gallery.h"
#include "ui/components/DesktopAppearance.h"
#include "ui/components/SegmentedControl.h"
#include "ui/components/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace clipwren;

namespace {

struct Page {
    QString name;
    std::function<QWidget *()> make;
};

const QList<Page> &pages()
{
    static const QList<Page> all = {
        {QStringLiteral("controls"), gallery::controlsPage},
        {QStringLiteral("cards"), gallery::cardsPage},
        {QStringLiteral("icons"), gallery::iconsPage},
        {QStringLiteral("log"), gallery::logPage},
        {QStringLiteral("video"), gallery::videoPage},
    };
    return all;
}

/// Writes a picture of each of them in both schemes. False when one cannot be written.
bool writeShots(Theme &theme, const QDir &folder)
{
    bool written = true;
    theme.forceReducedMotion(true);
    for (const auto scheme : {Theme::Scheme::Light, Theme::Scheme::Dark}) {
        theme.forceScheme(scheme);
        for (const Page &page : pages()) {
            const std::unique_ptr<QWidget> widget(page.make());
            widget->setAutoFillBackground(true);
            // Qt keeps new windows below two thirds of the screen.
            const int width = widget->sizeHint().width();
            widget->resize(width,
                           std::max(widget->sizeHint().height(), widget->heightForWidth(width)));
            widget->show();
            // The ring of focused controls comes with an event, facts about a file from a tool.
            QTest::qWait(300);
            const QString suffix =
                scheme == Theme::Scheme::Dark ? QStringLiteral("dark") : QStringLiteral("light");
            const QString file = QStringLiteral("%1-%2.png").arg(page.name, suffix);
            written = widget->grab().save(folder.filePath(file)) && written;
        }
    }
    return written;
}

void fillWindow(QWidget &window, Theme &theme)
{
    auto *schemes = new SegmentedControl(
        {QStringLiteral("Desktop"), QStringLiteral("Light"), QStringLiteral("Dark")});
    QObject::connect(schemes, &SegmentedControl::chosen, &theme, [&theme](int index) {
        theme.forceScheme(
            index == 0 ? std::nullopt
                       : std::optional(index == 1 ? Theme::Scheme::Light : Theme::Scheme::Dark));
    });
    auto *tabs = new QTabWidget;
    for (const Page &page : pages()) {
        auto *scroll = new QScrollArea;
        scroll->setWidget(page.make());
        scroll->setWidgetResizable(true);
        tabs->addTab(scroll, page.name);
    }
    auto *column = new QVBoxLayout(&window);
    column->addWidget(schemes);
    column->addWidget(tabs);
    window.resize(1000, 900);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Theme theme;
    const QCommandLineOption shots(QStringLiteral("shots"),
                                   QStringLiteral("Write pictures of all pages and leave."),
                                   QStringLiteral("folder"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows every control of the window."));
    parser.addHelpOption();
    parser.addOption(shots);
    parser.process(application);
    if (parser.isSet(shots)) {
        const QDir folder(parser.value(shots));
        return folder.mkpath(QStringLiteral(".")) && writeShots(theme, folder) ? 0 : 1;
    }

    const DesktopAppearance desktop;
    theme.follow(desktop);
    QWidget window;
    fillWindow(window, theme);
    window.show();
    return QApplication::exec();
}
