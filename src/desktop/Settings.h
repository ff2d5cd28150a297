#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

namespace quillon {

/// What the program keeps for the user, in one file at the platform's usual place. All instances on one file
/// agree, those of other processes included: `changed` comes for every change, wherever it was made, shortly
/// after it. A value of the wrong type counts as absent.
class Settings : public QObject {
    Q_OBJECT

public:
    /// On the user's own file; tests give another `file`.
    explicit Settings(QObject* parent = nullptr);
    Settings(const QString& file, QObject* parent);
    ~Settings() override;

    bool showLaunchWindowOnLaunch() const;     ///< "showLaunchWindowOnLaunch", true when absent
    bool componentOutlineShowsDetails() const; ///< "componentOutlineShowsDetails", false when absent
    QString mapsEmbedToken() const;            ///< "preview.mapsEmbedToken", empty when absent
    QString mapsEmbedOrigin() const; ///< "preview.mapsEmbedOrigin", the product's origin when absent

    void setShowLaunchWindowOnLaunch(bool value);
    void setComponentOutlineShowsDetails(bool value);

    /// "recentDocuments": folders, latest first, in the form that RecentDocuments gives them.
    QStringList recentDocuments() const;
    void setRecentDocuments(const QStringList& folders);

    /// Takes over at once what others wrote to the file.
    void refresh();

Q_SIGNALS:
    void changed();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
