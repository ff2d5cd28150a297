#pragma once

#include <QObject>

#include <memory>

class QWebEnginePage;

namespace quillon {

/// Tells a page which colour scheme the reader prefers, while it runs. The engine itself takes that only when
/// a process starts, so from the first change on a page of the engine's own developer tools, which nobody
/// sees, is attached to it and passes the wish on.
class WebColorScheme : public QObject {
    Q_OBJECT

public:
    enum class Scheme { light, dark };

    /// `page` outlives this; its engine prefers light.
    explicit WebColorScheme(QWebEnginePage& page);
    ~WebColorScheme() override;

    void set(Scheme scheme);

private:
    void send();
    void check(Scheme sent, const QString& value);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
