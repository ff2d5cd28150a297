#include "editor/PreviewPane.h"

#include "base/Time.h"
#include "desktop/ApplicationInfo.h"
#include "desktop/PreviewWebWidget.h"
#include "desktop/WindowPlacement.h"
#include "desktop/theme/Tokens.h"
#include "desktop/widgets/ProgressIndicator.h"
#include "editor/PreviewNote.h"
#include "editor/PreviewStage.h"
#include "model/ComponentTree.h"
#include "preview/ArticlePreviewView.h"
#include "preview/ResponsiveArticlePreview.h"

#include <QVBoxLayout>

namespace quillon {

namespace {

PreviewState previewState(const DocumentStore& store, const Settings& settings, const PreviewChoice& choice) {
    return {.document = store.document(),
            .device = choice.device,
            .orientation = choice.orientation,
            .appearance = choice.appearance,
            .mapsEmbedToken = settings.mapsEmbedToken().toStdString(),
            .mapsEmbedOrigin = settings.mapsEmbedOrigin().toStdString()};
}

} // namespace

struct PreviewPane::Parts {
    Parts(DocumentStore& theStore, ArticleDerivedContentCache& cache, Settings& theSettings,
          Scheduler& scheduler, PreviewPane& thePane)
        : pane(thePane), store(theStore), settings(theSettings),
          preview(previewState(theStore, theSettings, {}), cache,
                  {scheduler, applicationInfo, wallClockSeconds}),
          web(coordinator.configuration(), scheduler, &thePane), stage(web, &thePane),
          progress(tr("The page is being made"), Cancelling::Absent, &thePane), note(&thePane) {}

    void follow(const StoreChange& change);
    void followState();
    void layOut();
    void present();
    void updateWeb();

    PreviewPane& pane;
    DocumentStore& store;
    Settings& settings;
    ResponsiveArticlePreview preview;
    ArticlePreviewView::Coordinator coordinator;
    PreviewWebWidget web;
    PreviewStage stage;
    PreviewChoice choice;
    bool isPlaced = false;
    ProgressIndicator progress; ///< until the first page is on the screen
    PreviewNote note;
    Subscription subscription;
};

PreviewPane::PreviewPane(DocumentStore& store, ArticleDerivedContentCache& cache, Settings& settings,
                         Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(store, cache, settings, scheduler, *this)) {
    Parts& parts = *m_parts;
    setObjectName(QStringLiteral("previewPane"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&parts.stage);
    parts.present();

    parts.progress.setObjectName(QStringLiteral("previewProgress"));
    // The sign alone, which a wider one would show at its left.
    parts.progress.setFixedSize(extent::spinner, extent::control);
    parts.progress.setAttribute(Qt::WA_TransparentForMouseEvents);
    parts.progress.start();
    connect(&parts.web, &PreviewWebWidget::finished, &parts.progress, &ProgressIndicator::finish);

    parts.preview.onRendered = [&parts] {
        parts.updateWeb();
    };
    parts.subscription = store.observe([&parts](const StoreChange& change) { parts.follow(change); });
    connect(&settings, &Settings::changed, this, [&parts] { parts.followState(); });
    connect(&parts.web, &PreviewWebWidget::wheelPassed, &parts.stage, &PreviewStage::turnWheel);
    connect(&parts.web, &PreviewWebWidget::keyboardShown, &parts.stage, &PreviewStage::showKeyboard);
    connect(&parts.web, &PreviewWebWidget::componentClicked, this, [this, &parts](const QString& text) {
        const auto id = parseUuid(text.toStdString());
        if (id && findComponent(*id, parts.store.article().components)) {
            parts.coordinator.noteSeen(*id);
            Q_EMIT componentClicked(*id);
        }
    });
    connect(&parts.web, &PreviewWebWidget::finished, this, &PreviewPane::pageShown);
    connect(&parts.web, &PreviewWebWidget::restarted, this, [this, &parts](bool isWaiting) {
        if (isWaiting) {
            parts.progress.finish();
            parts.note.tell(
                tr("The page has stopped its web process several times. It is tried again with your "
                   "next change."),
                tr("Try Again"));
        } else {
            parts.note.tell(tr("The page's web process stopped and was started again."), QString());
        }
    });
    connect(&parts.note, &PreviewNote::actionChosen, this, [&parts] {
        parts.note.hide();
        parts.web.reload();
    });
}

PreviewPane::~PreviewPane() = default;

void PreviewPane::setChoice(const PreviewChoice& choice) {
    const bool isZoomed = m_parts->choice.zoom != choice.zoom;
    m_parts->choice = choice;
    m_parts->followState();
    if (isZoomed) {
        m_parts->web.setZoom(choice.zoom);
        m_parts->layOut();
    }
}

void PreviewPane::retire() {
    m_parts->subscription = {};
    m_parts->preview.onRendered = nullptr;
    m_parts->settings.disconnect(this);
    disconnect();
    hide();
}

PreviewWebWidget& PreviewPane::webWidget() const {
    return m_parts->web;
}

void PreviewPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_parts->note.arrange();
    m_parts->layOut();
}

void PreviewPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // A page made for the size that a new window has before it is placed would be thrown away.
    afterPlacement(*this, [this] {
        m_parts->isPlaced = true;
        m_parts->layOut();
    });
}

void PreviewPane::Parts::follow(const StoreChange& change) {
    // Other assets under the same fingerprint; any others bring a page of their own.
    if (change.assets && store.document().assetsFingerprint == preview.state().document.assetsFingerprint) {
        coordinator.forgetAssets();
    }
    if (change.article || change.assets) {
        followState();
    }
    if (change.assets || change.selection) {
        updateWeb();
    }
}

void PreviewPane::Parts::followState() {
    preview.setState(previewState(store, settings, choice));
    present();
}

/// A page of twice the size has half the room.
void PreviewPane::Parts::layOut() {
    if (isPlaced) {
        preview.layOut(pane.width() / choice.zoom, pane.height() / choice.zoom);
    }
    present();
}

/// Frame and caption follow at once, ahead of the page.
void PreviewPane::Parts::present() {
    std::optional<FrameSize> frame = deviceFrame(choice.device, choice.orientation);
    if (frame) {
        frame = FrameSize{frame->width * choice.zoom, frame->height * choice.zoom};
    }
    stage.setFrame(frame);
    web.setPassesWheel(frame.has_value());
    const QRect content = QRect(web.mapTo(&pane, QPoint()), web.size()) & pane.rect();
    progress.move(content.center() - progress.rect().center());
    const PreviewEnvironment environment =
        preview.resolvedEnvironment(pane.width() / choice.zoom, pane.height() / choice.zoom);
    stage.setCaption(QString::fromStdString(previewCaption(environment, choice.zoom)));
}

void PreviewPane::Parts::updateWeb() {
    const auto& rendered = preview.renderedPreview();
    if (!rendered) {
        return;
    }
    coordinator.update(web, {.html = rendered->html,
                             .contentKey = rendered->key,
                             .assetsFingerprint = store.document().assetsFingerprint,
                             .assets = store.document().assets,
                             .environment = preview.environment(),
                             .focusedComponentID = store.selection().component});
}

} // namespace quillon
