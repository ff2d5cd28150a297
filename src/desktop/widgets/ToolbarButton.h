#pragma once

#include <QAbstractButton>
#include <QMenu>

#include <string>

namespace quillon {

/// What the controls of the toolbar have in common: a plain button without a frame of its own, whose pointer,
/// press, focus and choice show behind its content.
class ToolbarButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit ToolbarButton(QWidget* parent);

    /// Opens below the control when it is pressed or, with the keyboard, by Space, Return and Down.
    void setMenu(QMenu* menu);
    bool hasMenu() const { return m_menu != nullptr; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    virtual void paintContent(QPainter& painter) = 0;
    QColor contentColor() const;

private:
    void openMenu();

    QMenu* m_menu = nullptr;
};

/// A title; the chosen one of several is emphasised.
class ToolbarModeButton : public ToolbarButton {
    Q_OBJECT

public:
    ToolbarModeButton(const QString& title, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintContent(QPainter& painter) override;
};

/// A symbol; the chosen one of several is emphasised.
class ToolbarSymbolButton : public ToolbarButton {
    Q_OBJECT

public:
    ToolbarSymbolButton(std::string symbol, const QString& name, QSize size, QWidget* parent);
    QSize sizeHint() const override { return m_size; }

protected:
    void paintContent(QPainter& painter) override;

private:
    std::string m_symbol;
    QSize m_size;
};

enum class Chevron { shown, hidden };

/// A symbol with a title; with a chevron it opens a menu.
class ToolbarLooseControlLabel : public ToolbarButton {
    Q_OBJECT

public:
    ToolbarLooseControlLabel(Chevron chevron, QWidget* parent);

    void setContent(const QString& title, std::string symbol);
    QSize sizeHint() const override;

protected:
    void paintContent(QPainter& painter) override;

private:
    Chevron m_chevron;
    std::string m_symbol;
};

} // namespace quillon
