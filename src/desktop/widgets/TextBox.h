#pragma once

#include "desktop/widgets/BoundControl.h"
#include "desktop/widgets/TypedText.h"

#include <QPlainTextEdit>

namespace quillon {

/// A field of several lines. It grows with its text and scrolls once that has more lines than it may show.
/// Each change is written at once. Tab leaves it.
class TextBox : public QPlainTextEdit, public BoundControl {
    Q_OBJECT

public:
    struct Options {
        QString prompt = {}; ///< shown while the box is empty
        int leastLines = 3;  ///< shown even where the text has fewer; at least 1
        int mostLines = 10;
    };

    explicit TextBox(Binding<std::string> binding, QWidget* parent = nullptr);
    TextBox(Binding<std::string> binding, Options options, QWidget* parent = nullptr);

    /// As it is written: lines end with a line feed.
    QString text() const;
    void refresh() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText(const QString& text, TypedText::Typing typing);
    void write();
    void fitHeight();

    TypedText m_typed;
    Options m_options;
    QString m_last; ///< the text when it was last shown or written
    bool m_isShowing = false;
};

} // namespace quillon
