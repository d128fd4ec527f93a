#pragma once

#include <QWidget>

#include <optional>

namespace clipwren {

class ElidedLabel;
class IconView;
class Label;

/// One tool of the setup screen: whether it was found, where, and in which version.
class ToolStatusRow : public QWidget {
    Q_OBJECT

public:
    explicit ToolStatusRow(const QString &name, QWidget *parent = nullptr);

    /// `found` is the tool's path.
    void display(const std::optional<QString> &found, const std::optional<QString> &version);

private:
    IconView *m_icon;
    ElidedLabel *m_path;
    Label *m_version;
};

} // namespace clipwren
