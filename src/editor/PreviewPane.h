#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"
#include "preview/PreviewFrame.h"

#include <QWidget>

#include <memory>

namespace quillon {

class ArticleDerivedContentCache;
class PreviewWebWidget;

/// What a preview is shown as.
struct PreviewChoice {
    PreviewDevice device = PreviewDevice::automatic;
    PreviewOrientation orientation = PreviewOrientation::portrait;
    PreviewAppearance appearance = PreviewAppearance::automatic;
    double zoom = zoom::actual;

    bool operator==(const PreviewChoice&) const = default;
};

/// The middle of a document window: the article's page, which follows every change of the store.
class PreviewPane : public QWidget {
    Q_OBJECT

public:
    /// `cache` is the window's; all references outlive the pane.
    PreviewPane(DocumentStore& store, ArticleDerivedContentCache& cache, Settings& settings,
                Scheduler& scheduler, QWidget* parent = nullptr);
    ~PreviewPane() override;

    void setChoice(const PreviewChoice& choice);
    /// Goes out of sight and follows nothing any more: all that is left to do is to delete it.
    void retire();

    PreviewWebWidget& webWidget() const;

Q_SIGNALS:
    /// A component was clicked in the page.
    void componentClicked(const Uuid& id);
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
