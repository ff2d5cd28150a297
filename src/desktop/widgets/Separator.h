#pragma once

#include <QWidget>

namespace quillon {

/// A thin line between things.
class Separator : public QWidget {
    Q_OBJECT

public:
    Separator(Qt::Orientation orientation, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::Orientation m_orientation;
};

} // namespace quillon
