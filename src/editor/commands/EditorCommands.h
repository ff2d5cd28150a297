#pragma once

#include <QObject>

#include <memory>

namespace quillon {

class DocumentWindow;
class EditorView;
class Settings;

/// What the View menu does: the middle of the window, the preview's choices, the columns.
class EditorCommands : public QObject {
    Q_OBJECT

public:
    /// Fills the menu of `window`. Belongs to `editor`, which stands in the window.
    EditorCommands(DocumentWindow& window, EditorView& editor, Settings& settings);
    ~EditorCommands() override;

private:
    void addModes();
    void addChoices();
    void addColumns(EditorView& editor);
    void refresh();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
