#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace quillon {

class JSONSourceView;

/// Searches a text, whatever the letters' case: shows how many places there are and goes from one to the
/// next. Ctrl+F in the text opens it, Escape closes it.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// `text` outlives the bar, which is hidden at first.
    FindBar(JSONSourceView& text, QWidget* parent);

    /// Shows the bar with the keyboard in it; what is selected within one line is what it searches.
    void open();
    /// Hides the bar and what it has found; the keyboard goes to the text.
    void close();
    enum class Direction { forward, backward };
    /// Selects the match next to the selection, from the text's end over to its begin. A bar that was closed
    /// opens.
    void go(Direction direction);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What is found anew is selected after typing; a text that changes is left where it is.
    enum class Then { select, stay };

    void search(Then then);
    void setCurrent(std::size_t match, Then then);
    void showCount();

    JSONSourceView& m_text;
    QLineEdit* m_field;
    QLabel* m_count;
    std::size_t m_current = 0; ///< of the text's matches
};

} // namespace quillon
