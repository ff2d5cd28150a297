#pragma once

#include <QHBoxLayout>
#include <QWidget>

namespace quillon {

/// A capsule that holds the controls of one subject side by side.
class ToolbarControlPill : public QWidget {
    Q_OBJECT

public:
    /// `spacing` is the distance between its controls, in points.
    ToolbarControlPill(int spacing, QWidget* parent);

    void add(QWidget* control);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_row;
};

} // namespace quillon
