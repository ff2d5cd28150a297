#pragma once

#include "base/DiskFailure.h"
#include "model/ArticleDocument.h"

#include <string>
#include <variant>

namespace quillon {

/// Why a package could not be opened or saved.
struct PackageFailure {
    /// What is no package at all; the names are those of the platform's error codes.
    enum class Code { fileReadCorruptFile, fileReadNoSuchFile };

    std::variant<Code, ReadFailure, EncodeFailure, DiskFailure> cause;

    /// One line that names the file, the spot and the cause: "a/article.json: components[3].role: expected
    /// text, found nothing". `package` is the package as the user named it.
    std::string message(const std::string& package) const;
};

} // namespace quillon
