#pragma once

#include "desktop/widgets/BoundControl.h"
#include "desktop/widgets/TypedText.h"

#include <QLineEdit>

#include <string>

namespace quillon {

class PushButton;

/// A field of one line. Each change of its text is written at once; numbers and lengths come through
/// `Binding::converted`, and stay as typed as long as they are typed.
class TextField : public QLineEdit, public BoundControl {
    Q_OBJECT

public:
    enum class Kind { text, number };
    enum class Clearing { none, button }; ///< the button clears, as does Escape

    struct Options {
        QString prompt = {};     ///< shown while the field is empty
        std::string symbol = {}; ///< at its left; empty for none
        Kind kind = Kind::text;
        Clearing clearing = Clearing::none;
    };

    explicit TextField(Binding<std::string> binding, QWidget* parent = nullptr);
    TextField(Binding<std::string> binding, Options options, QWidget* parent = nullptr);

    void refresh() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void showText(const QString& text, TypedText::Typing typing);
    void clearAll();
    void placeClearButton();

    TypedText m_typed;
    Options m_options;
    PushButton* m_clear = nullptr;
};

} // namespace quillon
