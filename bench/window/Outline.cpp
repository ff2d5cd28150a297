#include "Measure.h"

#include "desktop/theme/Theme.h"
#include "document/EditorOperations.h"
#include "editor/outline/ComponentOutlineView.h"
#include "model/ComponentTree.h"
#include "package/NewArticle.h"

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>

/// An outline of 10,000 rows, beside Qt's own tree view with as many rows of text.
namespace quillon::bench {

namespace {

constexpr int sections = 100;
constexpr int each = 99;
constexpr QSize viewSize(260, 900);

ArticleDocument bigArticle() {
    std::vector<Shared<Component>> top;
    for (int section = 0; section < sections; ++section) {
        std::vector<Shared<Component>> inner;
        for (int index = 0; index < each; ++index) {
            inner.emplace_back(
                makeTextComponent(ComponentRole::body, "Words of paragraph " + std::to_string(index)));
        }
        Component component = makeTextComponent(ComponentRole::section, "");
        component.components = List<Component>(std::move(inner));
        top.emplace_back(std::move(component));
    }
    ArticleDocument article = makeNewArticle("big", "Big", "");
    article.components = List<Component>(std::move(top));
    return article;
}

/// Both views are worked through the same steps.
class OwnOutline {
public:
    void open() {
        m_store = std::make_unique<DocumentStore>(makeNewDocument(bigArticleValue()), file::NeverSaved{},
                                                  [] { return 0.0; });
        m_view = std::make_unique<ComponentOutlineView>(*m_store, m_settings, nullptr);
    }
    QTreeView& view() { return *m_view; }
    void select(int step) { m_store->select(EditorSelection::ofComponent(idOf(step))); }
    void edit(int step) {
        const auto access = componentAccess(*m_store, idOf(step));
        Component component = access->read();
        component.text = "Step " + std::to_string(step);
        access->write({"Edit", {}}, component);
    }
    void move(int step) { moveComponent(*m_store, idOf(step), section(step + 7).id, 3); }

private:
    static const ArticleDocument& bigArticleValue() {
        static const ArticleDocument article = bigArticle();
        return article;
    }
    const Component& section(int step) const {
        return m_store->article().components[static_cast<std::size_t>(step * 13 % sections)];
    }
    Uuid idOf(int step) const { return (*section(step).components)[static_cast<std::size_t>(step % 50)].id; }

    QTemporaryDir m_folder;
    Settings m_settings{m_folder.filePath("settings.ini"), nullptr};
    std::unique_ptr<DocumentStore> m_store;
    std::unique_ptr<ComponentOutlineView> m_view;
};

class PlainTree {
public:
    void open() {
        auto* root = new QStandardItem("Article");
        for (int section = 0; section < sections; ++section) {
            auto* item = new QStandardItem("Section");
            for (int index = 0; index < each; ++index) {
                item->appendRow(new QStandardItem("Body"));
            }
            root->appendRow(item);
        }
        m_model.appendRow(root);
        m_view = std::make_unique<QTreeView>();
        m_view->setHeaderHidden(true);
        m_view->setUniformRowHeights(true);
        m_view->setModel(&m_model);
        m_view->expandAll();
    }
    QTreeView& view() { return *m_view; }
    void select(int step) { m_view->setCurrentIndex(itemOf(step)->index()); }
    void edit(int step) { itemOf(step)->setText("Step " + QString::number(step)); }
    void move(int step) {
        QStandardItem* item = itemOf(step);
        section(step + 7)->insertRow(3, item->parent()->takeRow(item->row()));
    }

private:
    QStandardItem* section(int step) const { return m_model.item(0)->child(step * 13 % sections); }
    QStandardItem* itemOf(int step) const { return section(step)->child(step % 50); }

    QStandardItemModel m_model;
    std::unique_ptr<QTreeView> m_view;
};

struct Figures {
    double open = 0;
    std::vector<double> scroll;
    std::vector<double> select;
    std::vector<double> edit;
    std::vector<double> move;
};

template <typename Subject>
Figures figuresOf() {
    Subject subject;
    const auto milliseconds = [&](const auto& action) {
        const double begin = seconds();
        action();
        QApplication::processEvents();
        subject.view().viewport()->repaint();
        return (seconds() - begin) * 1e3;
    };
    Figures figures;
    figures.open = milliseconds([&] {
        subject.open();
        subject.view().resize(viewSize);
        subject.view().show();
    });
    for (int step = 0; step < 40; ++step) {
        figures.scroll.push_back(milliseconds([&] {
            QScrollBar& bar = *subject.view().verticalScrollBar();
            bar.setValue(bar.maximum() * (step + 1) / 40);
        }));
    }
    for (int step = 0; step < 40; ++step) {
        figures.select.push_back(milliseconds([&] { subject.select(step); }));
        figures.edit.push_back(milliseconds([&] { subject.edit(step); }));
        figures.move.push_back(milliseconds([&] { subject.move(step); }));
    }
    return figures;
}

} // namespace

void measureOutline() {
    theme().setReducedMotion(true);
    const Figures plain = figuresOf<PlainTree>();
    const Figures own = figuresOf<OwnOutline>();
    theme().setReducedMotion(std::nullopt);
    const auto line = [](const std::string& title, double value, double beside) {
        print("outline of 10,000 rows, " + title + ": ms", value);
        print("  / a plain tree view", value / beside);
    };
    line("open to first paint", own.open, plain.open);
    line("scroll a fortieth (median)", percentile(own.scroll, 0.5), percentile(plain.scroll, 0.5));
    line("select (median)", percentile(own.select, 0.5), percentile(plain.select, 0.5));
    line("edit one text (median)", percentile(own.edit, 0.5), percentile(plain.edit, 0.5));
    line("move one (median)", percentile(own.move, 0.5), percentile(plain.move, 0.5));
}

} // namespace quillon::bench
