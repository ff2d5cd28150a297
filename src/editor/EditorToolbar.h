#pragma once

#include "model/ComponentRole.h"

#include <QWidget>

#include <functional>

namespace quillon {

class EditorWindowState;
class ToolbarSymbolButton;

/// The row at the top of a document window: the outline's column and the menu to add to it on the left, the
/// preview's controls in the middle, the inspector's column on the right.
class EditorToolbar : public QWidget {
    Q_OBJECT

public:
    /// `state` outlives the toolbar.
    EditorToolbar(EditorWindowState& state, const std::function<void(const ComponentRole&)>& onAdd,
                  QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    EditorWindowState& m_state;
    ToolbarSymbolButton* m_outline;
    ToolbarSymbolButton* m_inspector = nullptr;
};

} // namespace quillon
