#pragma once

#include "desktop/widgets/BoundControl.h"

#include <QCheckBox>
#include <QVariantAnimation>

namespace quillon {

/// A switch, whose knob slides from one side to the other. Its title stands elsewhere: in the label of its
/// row.
class Toggle : public QCheckBox, public BoundControl {
    Q_OBJECT

public:
    /// `name` is that of the label.
    Toggle(const QString& name, Binding<bool> binding, QWidget* parent = nullptr);

    void refresh() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void nextCheckState() override;

private:
    Binding<bool> m_binding;
    QVariantAnimation m_slide;
};

} // namespace quillon
