#pragma once

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

/// Searches a text, whatever the letters' case: shows how many places there are and goes from one to the
/// next. Ctrl+F in the text opens it, Escape closes it.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// `text` outlives the bar, which is hidden at first.
    FindBar(QPlainTextEdit& text, QWidget* parent);

    void open();
    void close();
    enum class Direction { forward, backward };
    void go(Direction direction);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search();
    void select(std::size_t place);
    void showCount();

    QPlainTextEdit& m_text;
    QLineEdit* m_field;
    QLabel* m_count;
    std::vector<int> m_places; ///< where the matches begin
    std::size_t m_current = 0;
};

} // namespace quillon
