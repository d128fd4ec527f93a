#pragma once

#include <QTranslator>

namespace clipwren::test {

/// A language whose texts are a third longer, and stand in brackets.
class BracketTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        // Key names and the texts of Qt's own are not ours.
        if (QLatin1StringView(context).startsWith(QLatin1StringView("Q")))
            return {};
        QString translation = QString::fromUtf8(text);
        // In words, which can be wrapped.
        for (qsizetype added = translation.size() / 3; added > 0; --added)
            translation += added % 8 == 0 ? u' ' : u'~';
        return u'⟦' + translation + u'⟧';
    }
};

} // namespace clipwren::test
