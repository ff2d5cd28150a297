#pragma once

#include "desktop/widgets/ChoiceRow.h"

namespace quillon {

/// Tabs side by side over a line, of which the chosen one is underlined.
class TabStrip : public ChoiceRow {
    Q_OBJECT

public:
    /// `name` is that of the whole. The binding leads to the index of a choice.
    TabStrip(const QString& name, std::vector<Choice> choices, Binding<int> binding,
             QWidget* parent = nullptr);

protected:
    QSize segmentSize(const Choice& choice) const override;
    void paintSegment(QPainter& painter, const QRectF& area, const Choice& choice,
                      const ControlState& state) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillon
