#pragma once

#include "base/Shared.h"

#include <QPlainTextEdit>

#include <string>

namespace quillon {

/// The article's JSON as a save writes it, to read, select, copy and search. One colour and one font; long
/// lines are not wrapped.
class JSONSourceView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit JSONSourceView(QWidget* parent);

    /// An equal text leaves selection and scroll place alone.
    void setJSON(const Shared<std::string>& json);

private:
    void applyColors();

    Shared<std::string> m_json;
};

} // namespace quillon
