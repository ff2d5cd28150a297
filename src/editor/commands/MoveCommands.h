#pragma once

#include <QObject>

#include <memory>

namespace quillon {

class DocumentWindow;
class EditorView;

/// What moves the selected component by the keyboard.
class MoveCommands : public QObject {
    Q_OBJECT

public:
    /// Adds to the Edit menu of `window`. Belongs to `editor`, which stands in the window.
    MoveCommands(DocumentWindow& window, EditorView& editor);
    ~MoveCommands() override;

private:
    void refresh();
    void lookAhead();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
