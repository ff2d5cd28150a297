#pragma once

#include "desktop/widgets/BoundControl.h"
#include "desktop/widgets/Choice.h"

#include <QAbstractButton>

#include <optional>
#include <string>
#include <vector>

class QMenu;

namespace quillon {

/// Shows the chosen one of several choices and opens a menu of all of them, by a press of the pointer or by
/// Space, Return and Down.
class MenuButton : public QAbstractButton, public BoundControl {
    Q_OBJECT

public:
    /// `name` is that of the label. The binding leads to the index of a choice.
    MenuButton(const QString& name, std::vector<Choice> choices, Binding<int> binding,
               QWidget* parent = nullptr);

    /// A small button without a frame, for beside a field: it shows `symbol` whatever is chosen.
    static MenuButton* ofSymbol(std::string symbol, const QString& name, std::vector<Choice> choices,
                                Binding<int> binding, QWidget* parent = nullptr);

    /// Offers other choices from now on, and shows the one chosen among them.
    void setChoices(std::vector<Choice> choices, Binding<int> binding);
    /// What is shown, in a quiet colour, where none is chosen.
    void setPrompt(const QString& prompt);

    void refresh() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Choice* chosen() const;
    void openMenu();
    void fill(QMenu& menu);

    std::vector<Choice> m_choices;
    Binding<int> m_binding;
    int m_chosen = noChoice;
    QString m_prompt;
    std::optional<std::string> m_ownSymbol; ///< of the button without a frame
};

} // namespace quillon
