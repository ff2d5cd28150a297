#include "editor/outline/ComponentOutlineView.h"

#include "desktop/DocumentText.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "document/EditorOperations.h"
#include "document/outline/RoleTint.h"
#include "editor/ComponentAddMenu.h"
#include "editor/outline/OutlineDragging.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace quillon {

namespace {

constexpr int emptyTextInset = 12;
constexpr int dropLine = 2;
constexpr int dropLineInset = 8;
constexpr int swipePause = 150;     ///< milliseconds without a move after which a swipe is over
constexpr double wheelToPoints = 8; ///< eighths of a degree for a point

} // namespace

ComponentOutlineView::ComponentOutlineView(DocumentStore& store, Settings& settings, QWidget* parent)
    : QTreeView(parent), m_store(store), m_settings(settings), m_model(nullptr), m_delegate(m_state, nullptr),
      m_dragging(new OutlineDragging(*this, m_state.drag)) {
    setObjectName(QStringLiteral("outline"));
    setAccessibleName(tr("Outline"));
    setModel(&m_model);
    setItemDelegate(&m_delegate);
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(0);
    setRootIsDecorated(false);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setAutoScroll(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAcceptDrops(true);
    m_state.showsDetails = settings.componentOutlineShowsDetails();
    m_state.drag.canDrop = [this](const Uuid& id, const ComponentDropIntent& intent) {
        return canDrop(id, intent, m_store.article().components);
    };
    m_state.drag.onDrop = [this](const Uuid& id, const ComponentDropIntent& intent) {
        return drop(id, intent);
    };
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &ComponentOutlineView::openAll);
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (const Component* component = OutlineModel::component(index)) {
            m_closed.insert(component->id);
        }
        // What nobody sees any more should not be what the next key deletes.
        if (visibleAncestor(currentIndex()) != currentIndex()) {
            setCurrentIndex(index);
        }
    });
    connect(&m_model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        // It may have become a container.
        if (OutlineModel::component(index) && OutlineModel::isContainer(index)) {
            expand(index);
        }
    });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (!m_isFollowing && index.isValid()) {
            scrollTo(index);
            const Component* component = OutlineModel::component(index);
            m_store.select(component ? EditorSelection::ofComponent(component->id)
                                     : EditorSelection::document());
        }
    });
    m_swipeEnd.setSingleShot(true);
    m_swipeEnd.setInterval(swipePause);
    connect(&m_swipeEnd, &QTimer::timeout, this, [this] { endSwipe(false); });
    connect(&settings, &Settings::changed, this, [this] {
        m_state.showsDetails = m_settings.componentOutlineShowsDetails();
        scheduleDelayedItemsLayout();
    });
    m_subscription = store.observe([this](const StoreChange& change) {
        if (change.article) {
            followArticle();
        }
        if (change.article || change.selection) {
            followSelection();
        }
    });
    followArticle();
    expand(m_model.articleIndex());
    // What is selected from the start shows no effect.
    m_state.isArticleActivated = !store.selection().component;
    m_state.activated = store.selection().component;
    followSelection();
}

ComponentOutlineView::~ComponentOutlineView() = default;

/// Every container is open again after an edit of the components, also one that the user had closed.
void ComponentOutlineView::followArticle() {
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    const ArticleDocument& article = m_store.article();
    if (!m_model.setArticle(shownTitle(article.title), article.components)) {
        return;
    }
    for (const Uuid& id : std::exchange(m_closed, {})) {
        if (const QModelIndex index = m_model.indexOf(id); index.isValid()) {
            expand(index);
        }
    }
}

void ComponentOutlineView::openAll(const QModelIndex& parent, int first, int last) {
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (OutlineModel::isContainer(index)) {
            expand(index);
            openAll(index, 0, m_model.rowCount(index) - 1);
        }
    }
}

void ComponentOutlineView::followSelection() {
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    const auto& selected = m_store.selection().component;
    const QModelIndex index = selected ? m_model.indexOf(*selected) : m_model.articleIndex();
    const bool isNew = m_state.activated != selected || m_state.isArticleActivated == selected.has_value();
    m_state.activated = selected;
    m_state.isArticleActivated = !selected;
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    setCurrentIndex(index);
    const Component* component = OutlineModel::component(index);
    const OutlineNode& node = OutlineModel::node(index);
    // To the article's row the selection falls back when its component goes, which moves nobody there.
    const bool isElsewhere =
        m_selectedPlace != std::pair(static_cast<const OutlineNode*>(node.parent), node.row);
    m_selectedPlace = {node.parent, node.row};
    if (component && (isNew || isElsewhere)) {
        scrollTo(index);
    }
    if (isNew) {
        activate(index);
    } else if (component && !(component->role == m_state.icon.role)) {
        m_state.icon.setRole(component->role);
    }
}

void ComponentOutlineView::activate(const QModelIndex& index) {
    const Component* component = OutlineModel::component(index);
    m_state.icon = {.role = component ? component->role : ComponentRole()};
    m_state.icon.appear();
    m_state.icon.setSelected(true);
    const auto play = [this, row = QPersistentModelIndex(index)] {
        m_delegate.play([this, row] { update(row); });
    };
    if (!component || !m_state.icon.drawsOn()) {
        play();
        return;
    }
    QTimer::singleShot(0, this, [this, play, id = component->id] {
        if (m_state.activated == id) {
            m_state.icon.drawOn();
            play();
        }
    });
}

bool ComponentOutlineView::drop(const Uuid& id, const ComponentDropIntent& intent) {
    const auto place = dropPlace(id, intent, m_store.article().components);
    if (!place) {
        return false;
    }
    if (intent.kind == ComponentDropIntent::Kind::appendChild) {
        expand(m_model.indexOf(intent.target));
    }
    moveComponent(m_store, id, place->parent, place->index);
    if (const QModelIndex index = m_model.indexOf(id); index.isValid()) {
        scrollTo(index);
    }
    return true;
}

void ComponentOutlineView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        viewport()->update();
    }
}

/// The branch's mark is the row's own, so that the whole width belongs to the row.
void ComponentOutlineView::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                                   const QModelIndex& index) const {
    QStyleOptionViewItem row = options;
    row.rect.setLeft(0);
    row.rect.setWidth(viewport()->width());
    row.state.setFlag(QStyle::State_Open, isExpanded(index));
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    row.state.setFlag(QStyle::State_MouseOver, index == indexAt(viewport()->mapFromGlobal(QCursor::pos())) &&
                                                   viewport()->underMouse());
    itemDelegate()->paint(painter, row, index);
}

void ComponentOutlineView::paintEvent(QPaintEvent* event) {
    const ThemeColors& colors = theme().colors();
    QPainter(viewport()).fillRect(viewport()->rect(), colors.sidebar);
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    if (m_model.rowCount(m_model.articleIndex()) == 0 && isExpanded(m_model.articleIndex())) {
        painter.setFont(theme().font(TextSize::Label));
        painter.setPen(colors.textSecondary);
        painter.drawText(
            m_dragging->rootDropZone().adjusted(emptyTextInset, distance::inside, 0, distance::around),
            Qt::AlignLeft | Qt::AlignTop, tr("No components yet"));
    }
    if (m_state.drag.activeDropIntent == ComponentDropIntent::appendToRoot()) {
        const QRect zone = m_dragging->rootDropZone();
        const int top = std::min(zone.top(), viewport()->height() - dropLine);
        const QRect line(dropLineInset, top, zone.width() - 2 * dropLineInset, dropLine);
        painter.fillRect(
            line, QColor(QLatin1String(articleTint.data(), static_cast<qsizetype>(articleTint.size()))));
    }
}

/// There is one selected row, whatever is held with the click or key.
QItemSelectionModel::SelectionFlags ComponentOutlineView::selectionCommand(const QModelIndex&,
                                                                           const QEvent*) const {
    return QItemSelectionModel::ClearAndSelect;
}

QModelIndex ComponentOutlineView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex current = currentIndex();
    if (action == MoveRight && isExpanded(current) && m_model.rowCount(current) > 0) {
        return m_model.index(0, 0, current);
    }
    if (action == MoveLeft && !(OutlineModel::isContainer(current) && isExpanded(current))) {
        return current.parent().isValid() ? current.parent() : current;
    }
    return QTreeView::moveCursor(action, modifiers);
}

void ComponentOutlineView::keyPressEvent(QKeyEvent* event) {
    showFocus(true);
    if (m_dragging->isActive()) {
        if (event->key() == Qt::Key_Escape) {
            m_dragging->cancel();
            m_pressed = QModelIndex();
        }
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT editRequested();
        return;
    }
    QTreeView::keyPressEvent(event);
}

bool ComponentOutlineView::matches(const QModelIndex& index, const QString& search) const {
    const Component* component = OutlineModel::component(index);
    const QString name = index.data(Qt::DisplayRole).toString();
    return name.startsWith(search, Qt::CaseInsensitive) ||
           (component && shownLine(component->summary()).startsWith(search, Qt::CaseInsensitive));
}

QModelIndex ComponentOutlineView::visibleAncestor(QModelIndex index) const {
    QModelIndex visible = index;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        visible = isExpanded(above) ? visible : above;
    }
    return visible;
}

/// From the current row on, which goes on matching as one types on, and round to the rows above. One letter
/// again and again goes from match to match.
void ComponentOutlineView::keyboardSearch(const QString& search) {
    const bool isNew =
        !m_lastSearch.isValid() || m_lastSearch.elapsed() > QApplication::keyboardInputInterval();
    m_lastSearch.restart();
    m_searched = isNew ? search : m_searched + search;
    const bool isOneLetter = m_searched.count(m_searched.front()) == m_searched.size();
    const QString wanted = isOneLetter ? m_searched.left(1) : m_searched;
    const QModelIndex current = visibleAncestor(currentIndex());
    const QModelIndex start = current.isValid() ? current : m_model.articleIndex();
    const auto next = [this](const QModelIndex& index) {
        const QModelIndex below = indexBelow(index);
        return below.isValid() ? below : m_model.articleIndex();
    };
    QModelIndex index = isNew || isOneLetter ? next(start) : start;
    const QModelIndex first = index;
    do {
        if (matches(index, wanted)) {
            setCurrentIndex(index);
            return;
        }
        index = next(index);
    } while (index != first);
}

/// Sideways the wheel, which two fingers turn, pushes the row below the pointer aside.
void ComponentOutlineView::wheelEvent(QWheelEvent* event) {
    const bool isGesture = !event->pixelDelta().isNull();
    const QPointF moved =
        isGesture ? QPointF(event->pixelDelta()) : QPointF(event->angleDelta()) / wheelToPoints;
    if (event->phase() == Qt::ScrollEnd) {
        m_swipeEnd.stop();
        endSwipe(true);
        return;
    }
    const Component* component = OutlineModel::component(indexAt(event->position().toPoint()));
    if (std::abs(moved.x()) <= std::abs(moved.y()) || !component || m_dragging->isActive()) {
        QTreeView::wheelEvent(event);
        m_dragging->follow();
        return;
    }
    m_state.swipe.push(component->id, moved.x(), viewport()->width());
    if (event->phase() == Qt::NoScrollPhase) {
        m_swipeEnd.start();
    }
    viewport()->update();
    event->accept();
}

void ComponentOutlineView::endSwipe(bool mayPress) {
    const std::optional<Uuid> row = m_state.swipe.row();
    if (m_state.swipe.release(mayPress) == RowSwipe::End::pressed) {
        m_state.swipe.close();
        deleteComponent(m_store, *row);
    }
    viewport()->update();
}

bool ComponentOutlineView::isOnChevron(const QModelIndex& index, const QPoint& place) const {
    return OutlineModel::isContainer(index) &&
           OutlineDelegate::chevronRect(visualRect(index), OutlineModel::node(index).depth()).contains(place);
}

void ComponentOutlineView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const QModelIndex index = indexAt(place);
    m_pressed = QModelIndex();
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    showFocus(false);
    if (m_state.swipe.isOpen()) {
        const Component* component = OutlineModel::component(index);
        const bool isOnButton = component && m_state.swipe.row() == component->id &&
                                place.x() >= viewport()->width() - m_state.swipe.offset();
        const Uuid id = isOnButton ? component->id : Uuid();
        m_state.swipe.close();
        viewport()->update();
        if (isOnButton) {
            deleteComponent(m_store, id);
        }
        return;
    }
    if (isOnChevron(index, place)) {
        setExpanded(index, !isExpanded(index));
        return;
    }
    setCurrentIndex(index);
    m_pressed = index;
    m_pressPlace = place;
}

void ComponentOutlineView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton)) {
        // The release went elsewhere, to a menu for instance.
        m_pressed = QModelIndex();
        m_dragging->cancel();
    }
    if (m_dragging->isActive()) {
        m_dragging->moveTo(place);
    } else if (m_pressed.isValid() && OutlineModel::component(m_pressed) &&
               (place - m_pressPlace).manhattanLength() >= QApplication::startDragDistance()) {
        m_dragging->begin(m_pressed, m_pressPlace);
        m_dragging->moveTo(place);
    } else {
        viewport()->update();
    }
}

void ComponentOutlineView::mouseReleaseEvent(QMouseEvent* event) {
    m_pressed = QModelIndex();
    if (m_dragging->isActive() && event->button() == Qt::LeftButton) {
        m_dragging->dropAt(event->position().toPoint());
    }
}

void ComponentOutlineView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (isOnChevron(index, event->position().toPoint())) {
        setExpanded(index, !isExpanded(index));
    } else if (index.isValid() && event->button() == Qt::LeftButton) {
        m_pressed = index;
        m_pressPlace = event->position().toPoint();
        Q_EMIT editRequested();
    }
}

void ComponentOutlineView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    const Component* component = OutlineModel::component(index);
    if (!component) {
        return;
    }
    if (isByKey) {
        scrollTo(index);
    }
    const Uuid id = component->id;
    auto* menu = new QMenu(this);
    menu->setToolTipsVisible(true);
    menu->setObjectName(QStringLiteral("rowMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (component->role.isContainer()) {
        QMenu* add = menu->addMenu(symbolIcon("plus"), tr("Add Child"));
        add->menuAction()->setToolTip(tr("Add a child component"));
        fillComponentAddMenu(*add,
                             [this, id](const ComponentRole& role) { addComponent(m_store, role, id); });
    }
    connect(menu->addAction(symbolIcon("trash"), tr("Delete")), &QAction::triggered, this,
            [this, id] { deleteComponent(m_store, id); });
    menu->popup(isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

/// What comes from another program is not for the outline, texts included; the window may want it.
void ComponentOutlineView::dragEnterEvent(QDragEnterEvent* event) {
    event->ignore();
}

void ComponentOutlineView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    showFocus(event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason);
}

void ComponentOutlineView::focusOutEvent(QFocusEvent* event) {
    QTreeView::focusOutEvent(event);
    showFocus(false);
    m_pressed = QModelIndex();
    m_dragging->cancel();
}

void ComponentOutlineView::showFocus(bool shows) {
    if (m_state.showsFocus != shows) {
        m_state.showsFocus = shows;
        viewport()->update();
    }
}

} // namespace quillon
