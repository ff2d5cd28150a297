#pragma once

#include "model/ArticleDocument.h"

#include <QString>
#include <QUrl>

#include <cstdint>
#include <string>

/// How documents and paths are shown to people.
namespace quillon {

/// A path, the home folder as "~". Bytes that are not UTF-8 show as replacement characters.
QString shownPath(const std::string& path);

/// The last piece of a path.
QString shownFolderName(const std::string& path);

/// The beginning of a text that may be of any length, on one line: more than any line of the window shows.
QString shownLine(const std::string& text);

/// The article's title on one line, "Untitled" where it has none.
QString shownTitle(const std::string& title);

/// The title of a document window, with Qt's place for the edited mark: "TITLE[*] — FOLDER".
QString windowTitle(const QString& articleTitle, const QString& folder);

/// "312 KB", in the unit that fits.
QString shownSize(std::uint64_t bytes);

/// A moment in seconds since 1970, in the user's own form.
QString shownTime(double seconds);

/// `text` in a menu, where "&" would mark a key.
QString menuText(QString text);

/// The path that an address of a local file stands for, bytes that are not UTF-8 included; empty for any
/// other address.
std::string pathFromUrl(const QUrl& url);

/// A path as text that any file of settings keeps, and back.
QString encodedPath(const std::string& path);
std::string decodedPath(const QString& text);

} // namespace quillon
