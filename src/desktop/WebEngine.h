#pragma once

namespace quillon {

/// Prepares the web engine of this process; called once in main() before the application object is made.
void prepareWebEngine();

} // namespace quillon
