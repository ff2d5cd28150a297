#pragma once

#include "base/Shared.h"
#include "document/TextLines.h"

#include <QMimeData>

#include <string>

namespace quillon {

/// A part of a shared text for the clipboard. It is converted when someone pastes it, not when it is copied.
class SharedTextMime : public QMimeData {
    Q_OBJECT

public:
    SharedTextMime(Shared<std::string> text, TextRange range) : m_text(std::move(text)), m_range(range) {}

    QStringList formats() const override { return {QStringLiteral("text/plain")}; }

protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override {
        if (!hasFormat(format)) {
            return QMimeData::retrieveData(format, type);
        }
        return QString::fromUtf8(m_text->data() + m_range.begin, static_cast<qsizetype>(m_range.size()));
    }

private:
    Shared<std::string> m_text;
    TextRange m_range;
};

} // namespace quillon
