#pragma once

#include "desktop/widgets/BoundControl.h"

#include <QCheckBox>

#include <optional>

namespace quillon {

/// A box with a mark, and its title beside it.
class CheckBox : public QCheckBox, public BoundControl {
    Q_OBJECT

public:
    CheckBox(const QString& title, Binding<bool> binding, QWidget* parent = nullptr);
    /// An absent value is a mixed one; the user leaves it by checking the box, and cannot come back to it.
    CheckBox(const QString& title, Binding<std::optional<bool>> binding, QWidget* parent = nullptr);

    void refresh() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void nextCheckState() override;

private:
    Binding<std::optional<bool>> m_binding;
};

} // namespace quillon
