#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"

#include <QWidget>

#include <memory>

namespace quillon {

class ArticleDerivedContentCache;
class PreviewWebWidget;

/// The middle of a document window: the article's page, which follows every change of the store.
class PreviewPane : public QWidget {
    Q_OBJECT

public:
    /// `cache` is the window's; all references outlive the pane.
    PreviewPane(DocumentStore& store, ArticleDerivedContentCache& cache, Settings& settings,
                Scheduler& scheduler, QWidget* parent = nullptr);
    ~PreviewPane() override;

    PreviewWebWidget& webWidget() const;

Q_SIGNALS:
    /// A page is complete on the screen.
    void pageShown();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
