#pragma once

#include <QWidget>

#include <string>

namespace quillon {

class TextLabel;

/// The head of a form: a symbol, a title and, below it, a secondary line.
class Header : public QWidget {
    Q_OBJECT

public:
    /// Without a secondary line where that is empty.
    Header(std::string symbol, const QString& title, const QString& secondary, QWidget* parent);

    void setContent(std::string symbol, const QString& title, const QString& secondary);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    TextLabel* m_title;
    TextLabel* m_secondary;
};

} // namespace quillon
