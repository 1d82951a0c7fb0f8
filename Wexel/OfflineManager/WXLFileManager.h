#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include <QString>
#include <QStringList>
#include <QUrl>

#include <Wexel/WXLWexelReportData.h>

namespace wexel {

/// Name of the report folder below the documents folder.
inline const QString WexelSavedDirectory = QStringLiteral("WexelSavedDataDirectory");
/// What the name of every report file ends with.
inline const QString WexelFileExtension = QStringLiteral(".wexelreportfile");

/// Keeps reports on disk, one file each, named by a generated identifier, until they have been sent. A file is
/// complete or not there, and readable by its owner alone.
///
/// Every failure is logged and comes to nothing, an empty list or no action. Thread-safe: saves, loads, listings and
/// deletions never overlap.
class WXLFileManager
{
public:
    /// \param documentsDirectory a local folder; created when the first report is saved
    explicit WXLFileManager(QUrl documentsDirectory);

    [[nodiscard]] const QUrl &documentsDirectory() const { return m_documentsDirectory; }
    /// The report folder, created when it is missing; returned even when that failed. Nothing when the host has no
    /// documents folder at all.
    [[nodiscard]] std::optional<QUrl> wexelSavedFolder() const;
    [[nodiscard]] std::optional<QUrl> generateFilenameForIdentifier(const QString &identifier) const;

    /// \return the new report's identifier (a UUID in upper case), or nothing when it could not be saved
    std::optional<QString> saveDataForReportData(const WXLWexelReportData &reportData);
    /// \return null when the file is missing (which is not logged) or is not a report
    [[nodiscard]] std::shared_ptr<WXLWexelReportData>
    loadReportDataForIdentifier(const QString &identifier) const;
    void deleteReportDataForIdentifier(const QString &identifier);
    /// Empties the report folder, whatever is in it.
    void deleteAllLocalReportData();
    /// Identifiers of all stored reports, oldest file first.
    [[nodiscard]] QStringList savedReports() const;
    /// True while the report's file is there.
    [[nodiscard]] bool hasReport(const QString &identifier) const;
    /// Removes what a process that was killed while saving left behind.
    void removeAbandonedWrites();

private:
    [[nodiscard]] QString folderPath() const;
    mutable std::mutex m_mutex; // held by every function that reads or writes the folder
    QUrl m_documentsDirectory;
};

} // namespace wexel
