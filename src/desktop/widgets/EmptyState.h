#pragma once

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace quillon {

/// What stands in an empty place: what belongs there and, where there is one, the action that fills it.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    struct Action {
        QString title;
        std::function<void()> run;
    };
    struct Content {
        std::string symbol;
        QString title;
        QString description = {}; ///< empty for none
        std::optional<Action> action = {};
    };

    explicit EmptyState(const Content& content, QWidget* parent = nullptr);
};

} // namespace quillon
