#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"
#include "model/ComponentRole.h"

#include <QWidget>

#include <memory>

namespace quillon {

class EditorWindowState;
class FindBar;
class JSONSourceView;
class PreviewPane;

/// The content of one document window: everything that shows and edits its article.
class EditorView : public QWidget {
    Q_OBJECT

public:
    /// All references outlive the view.
    EditorView(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent = nullptr);
    ~EditorView() override;

    DocumentStore& store() const;
    EditorWindowState& state() const;

    /// What stands in the middle; null for the one that does not.
    PreviewPane* preview() const;
    JSONSourceView* json() const;
    FindBar* find() const;

    /// Gives the keyboard to the next of the columns that stand and can have it.
    void focusNextColumn();

Q_SIGNALS:
    /// The article's page is complete.
    void pageShown();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void focusMiddle();
    void showPreview();
    void retirePreview();
    void showJSON();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
