#pragma once

#include <QProcess>
#include <QString>

namespace clipwren::test {

/// The sample video site, served on this machine while the object lives.
///
/// Its films are made once and kept in the build folder; tests that run at the same time share
/// them. The pages are listed in tools/sample-site/pages.py.
class SampleSite {
public:
    /// Returns once the site answers. Throws std::runtime_error when it cannot be brought up.
    SampleSite();
    ~SampleSite();
    Q_DISABLE_COPY_MOVE(SampleSite)

    /// The full address of a path of the site, such as /watch?v=tide-clock-01.
    QString address(const QString &path) const { return m_base + path; }

private:
    QProcess m_server;
    QString m_base;
};

} // namespace clipwren::test
