#include "editor/JSONSourceView.h"

#include "desktop/theme/Theme.h"

namespace quillon {

namespace {

constexpr int inset = 16;

} // namespace

JSONSourceView::JSONSourceView(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("jsonSource"));
    setAccessibleName(tr("JSON"));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(inset);
    connect(&theme(), &Theme::changed, this, [this] { applyColors(); });
    applyColors();
}

void JSONSourceView::setJSON(const Shared<std::string>& json) {
    if (!(m_json == json)) {
        m_json = json;
        setPlainText(QString::fromStdString(*json));
    }
}

void JSONSourceView::applyColors() {
    setFont(theme().monospacedFont(TextSize::Body));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, theme().colors().surface);
    colors.setColor(QPalette::Text, theme().colors().text);
    setPalette(colors);
}

} // namespace quillon
