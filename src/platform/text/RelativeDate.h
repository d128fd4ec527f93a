#pragma once

#include <QDateTime>
#include <QLocale>

#include <memory>

namespace clipwren {

/// Says how long ago something was, by name where the language has one: "now", "2 hours ago",
/// "yesterday", "last week", "3 months ago".
///
/// The first text takes far longer than the next ones. One thread at a time.
class RelativeDate {
public:
    explicit RelativeDate(const QLocale &locale = QLocale());
    ~RelativeDate();
    RelativeDate(const RelativeDate &) = delete;
    RelativeDate &operator=(const RelativeDate &) = delete;

    /// Days count from midnight in the user's time zone; less than a minute is "now". A time after
    /// `now` gives "tomorrow", "in 3 days" and the like; an invalid one an empty text.
    QString text(const QDateTime &time,
                 const QDateTime &now = QDateTime::currentDateTimeUtc()) const;

private:
    struct Formatter;

    QLocale m_locale;
    mutable std::unique_ptr<Formatter> m_formatter; // made for the first text
};

} // namespace clipwren
