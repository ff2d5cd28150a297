#pragma once

#include <QObject>

#include <memory>

namespace quillon {

class DocumentWindow;
class EditorView;

/// What the Edit menu does with the text that has the keyboard, or else with the selected component, and the
/// search in the JSON; and the Insert menu.
class EditCommands : public QObject {
    Q_OBJECT

public:
    /// Fills the menus of `window`. Belongs to `editor`, which stands in the window.
    EditCommands(DocumentWindow& window, EditorView& editor);
    ~EditCommands() override;

private:
    void refresh();
    void copy();
    void cut();
    void paste();
    void removeSelected();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
