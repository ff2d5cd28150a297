#pragma once

#include "desktop/widgets/ChoiceRow.h"

namespace quillon {

/// What of a choice is drawn; its title names it in either case.
enum class ChoiceLook { TitleAndSymbol, SymbolOnly };

/// A track of segments, of which the chosen one stands raised.
class SegmentedControl : public ChoiceRow {
    Q_OBJECT

public:
    /// `name` is that of the whole, as its label says it. The binding leads to the index of a choice.
    SegmentedControl(const QString& name, std::vector<Choice> choices, Binding<int> binding,
                     ChoiceLook look = ChoiceLook::TitleAndSymbol, QWidget* parent = nullptr);

protected:
    QSize segmentSize(const Choice& choice) const override;
    void paintSegment(QPainter& painter, const QRectF& area, const Choice& choice,
                      const ControlState& state) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    ChoiceLook m_look;
};

} // namespace quillon
