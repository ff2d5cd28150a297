#pragma once

#include <QWidget>

class QVBoxLayout;

namespace quillon {

/// A card that holds rows, with a title above them.
class Section : public QWidget {
    Q_OBJECT

public:
    /// Without a title where that is empty.
    Section(const QString& title, QWidget* parent);

    /// Takes `row` for its own, below those that are there.
    void add(QWidget* row);
    /// Draws a line below the rows that are there.
    void addSeparator();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

} // namespace quillon
