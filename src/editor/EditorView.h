#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"

#include <QWidget>

#include <memory>

namespace quillon {

/// The content of one document window: everything that shows and edits its article.
class EditorView : public QWidget {
    Q_OBJECT

public:
    /// All references outlive the view.
    EditorView(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent = nullptr);
    ~EditorView() override;

Q_SIGNALS:
    /// The article's page is complete.
    void pageShown();

private:
    void refresh();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
