#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace clipwren {

using namespace Qt::StringLiterals;

void installTranslations()
{
    const auto install = [](const QString &name, const QString &folder) {
        auto *translator = new QTranslator(qApp);
        const bool isThere = translator->load(QLocale(), name, u"_"_s, folder);
        if (isThere)
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
        return isThere;
    };
    // Qt's own texts, as in the menus of text fields, only where ours are in that language, too.
    if (install(u"clipwren"_s, u":/translations"_s))
        install(u"qtbase"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
}

} // namespace clipwren
