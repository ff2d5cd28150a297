#pragma once

namespace quillon {

/// Makes this process and its web engine show the families that articles name with free faces where the
/// machine lacks them. To be called before anything of this process asks for a font; a later call adds fonts
/// that were installed meanwhile. Where the system has no matcher of fonts that can be told, nothing happens.
void preparePageFonts();

} // namespace quillon
