#include "app/commands/GenerateCommands.h"

#include "base/Time.h"
#include "desktop/DocumentText.h"
#include "desktop/MenuItem.h"
#include "desktop/QtText.h"
#include "desktop/theme/Symbols.h"
#include "package/GeneratedArticle.h"
#include "package/NewArticle.h"
#include "package/Templates.h"

namespace quillon {

namespace {

std::int64_t now() {
    return static_cast<std::int64_t>(wallClockSeconds());
}

} // namespace

void GenerateCommands::addTo(QMenu& fileMenu) const {
    const qsizetype behindNew = fileMenu.actions().indexOf(fileMenu.findChild<QAction*>("new")) + 1;
    QAction* next = fileMenu.actions().value(behindNew);
    auto* templates = new QMenu(QObject::tr("New from &Template"), &fileMenu);
    templates->setObjectName(QStringLiteral("templateMenu"));
    for (const ArticleTemplate::Category category : allTemplateCategories) {
        templates->addSection(qtText(rawValue(category)));
        for (const ArticleTemplate& each : allTemplates()) {
            if (each.category == category) {
                QAction* action =
                    templates->addAction(symbolIcon(each.systemImage), menuText(qtText(each.title)));
                action->setObjectName(QStringLiteral("template.") + qtText(each.id));
                QObject::connect(action, &QAction::triggered, templates, [open = newDocument, &each] {
                    open(makeNewDocument(each.makeArticle(now())));
                });
            }
        }
    }
    fileMenu.insertMenu(next, templates);
    addMenuItem(fileMenu,
                {"generate",
                 QObject::tr("&Generate Article..."),
                 {QKeySequence("Ctrl+Shift+G")},
                 [open = newDocument] {
                     open(makeGeneratedDocument(std::nullopt, now()));
                 }},
                next);
}

} // namespace quillon
