#include "editor/EditorWindowState.h"

namespace quillon {

void EditorWindowState::flipOrientation() {
    const bool isPortrait = m_choice.orientation == PreviewOrientation::portrait;
    choose(&PreviewChoice::orientation,
           isPortrait ? PreviewOrientation::landscape : PreviewOrientation::portrait);
}

} // namespace quillon
