#pragma once

#include "desktop/theme/Painting.h"
#include "desktop/widgets/BoundControl.h"
#include "desktop/widgets/Choice.h"

#include <QHBoxLayout>
#include <QVariantAnimation>
#include <QWidget>

#include <vector>

class QAbstractButton;

namespace quillon {

/// What controls have in common that show their choices side by side, one of them chosen: the keyboard comes
/// to the chosen one only and the arrow keys, Home and End move the choice. The mark of the chosen one
/// slides.
class ChoiceRow : public QWidget, public BoundControl {
    Q_OBJECT

public:
    void refresh() override;
    /// What the pointer and the keyboard reach: one button for each choice, in their order.
    const std::vector<QAbstractButton*>& segments() const { return m_segments; }

protected:
    ChoiceRow(const QString& name, std::vector<Choice> choices, Binding<int> binding, QWidget* parent);

    virtual QSize segmentSize(const Choice& choice) const = 0;
    /// Draws one choice over the mark; its `state` is that of its button.
    virtual void paintSegment(QPainter& painter, const QRectF& area, const Choice& choice,
                              const ControlState& state) const = 0;

    QHBoxLayout& row() { return *m_row; }
    /// The segment that the mark belongs to, or a place on its way there; empty when none is chosen.
    QRectF markArea() const;

private:
    friend class ChoiceSegment;

    void choose(int index);
    void chooseBy(int key);
    void slideFrom(const QRectF& area);

    std::vector<Choice> m_choices;
    Binding<int> m_binding;
    std::vector<QAbstractButton*> m_segments;
    QHBoxLayout* m_row;
    int m_chosen = noChoice;
    QRectF m_slideStart;
    QVariantAnimation m_slide;
};

} // namespace quillon
