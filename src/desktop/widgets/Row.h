#pragma once

#include <QWidget>

class QGridLayout;

namespace quillon {

class TextLabel;

/// Where a row's label stands.
enum class LabelPlace { beside, above };

/// A control with its label and, at its right, room for one more widget. The label names the control, and a
/// click on it gives the control the keyboard.
class Row : public QWidget {
    Q_OBJECT

public:
    /// The row takes `control` for its own. A control that has an accessible name already keeps it.
    Row(const QString& label, QWidget* control, QWidget* parent, LabelPlace place = LabelPlace::beside);

    void setTrailing(QWidget* widget);
    void setLabelPlace(LabelPlace place);
    QWidget* control() const { return m_control; }

private:
    TextLabel* m_label;
    QWidget* m_control;
    QWidget* m_trailing = nullptr;
    QGridLayout* m_grid;
    LabelPlace m_place;
};

} // namespace quillon
