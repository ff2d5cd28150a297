#pragma once

#include "package/ArticleFileDocument.h"
#include "package/PackageStamp.h"

#include <string>

namespace quillon {

/// Whether the package at `path`, `found` now with an equal stamp as `known` before, still holds what it held
/// then, `saved`. A file whose change time alone has moved may have got a new link, or new contents of the
/// same size and with the old time: it is read and compared. Fails where it cannot be read.
Expected<bool, PackageFailure> holdsStill(const std::string& path, const PackageStamp& known,
                                          const PackageStamp& found, const ArticleFileDocument& saved);

} // namespace quillon
