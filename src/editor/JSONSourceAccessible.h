#pragma once

namespace quillon {

class JSONSourceView;

/// Lets assistive technology read source views; to be called before one is shown, as often as one likes.
void installJSONSourceAccessibility();

/// Tells assistive technology of another text, or of another caret or selection.
void tellOfText(JSONSourceView& view);
void tellOfSelection(JSONSourceView& view);

} // namespace quillon
