#pragma once

#include <QDialog>

class QVBoxLayout;

namespace clipwren {

/// A dialog that tells something, as wide as that needs, with a button to close it at its end.
class InformationDialog : public QDialog {
    Q_OBJECT

protected:
    /// `heading` stands above all else; `spacing` between the rows is in logical pixels.
    InformationDialog(const QString &title, const QString &heading, int spacing, QWidget *parent);

    QVBoxLayout *column() const { return m_column; }
    void addCloseButton();

    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_column;
};

} // namespace clipwren
