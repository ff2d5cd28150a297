#pragma once

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QWidget>

namespace quillon {

/// A capsule that holds the controls of one subject side by side.
class ToolbarControlPill : public QWidget {
    Q_OBJECT

public:
    /// `name` says what its controls are for; it is read aloud. `spacing` is the distance between them, in
    /// points.
    ToolbarControlPill(const QString& name, int spacing, QWidget* parent);

    void add(QWidget* control);
    /// Adds one of several of which one is chosen at a time: the keyboard comes to the chosen one only, and
    /// the arrow keys move the choice.
    void addChoice(QAbstractButton* choice);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_row;
};

} // namespace quillon
