#pragma once

#include <memory>
#include <optional>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <Wexel/SecureCoding.h>
#include <Wexel/WXLWexelFile.h>

namespace wexel {

struct ArchivableClass;

/// One report before it is uploaded: a snapshot of the device and the application, the screenshot and attachments.
///
/// The library makes one for each report and passes it through `WXLWexel::onPrepareData`, where a host may add
/// quick facts and attachments. Not thread-safe: it belongs to the main thread until it is handed to the uploader,
/// and must not be changed afterwards.
class WEXEL_EXPORT WXLWexelReportData final : public SecureCoding
{
public:
    /// Free text of the host's own, shown as "quick facts" with the report. Absent by default.
    std::optional<QString> quickFacts;
    /// Attachments beside the screenshot, in upload order. Absent by default.
    std::optional<QList<std::shared_ptr<WXLWexelFile>>> attachedFiles;
    /// What was gathered, under the keys with the prefix "WXL_" (strings, numbers and arrays of records). A key
    /// whose source gave nothing is missing. Values of other types are left out.
    std::optional<QVariantMap> gatheredDataDict;
    /// The (annotated) screenshot, or null.
    std::shared_ptr<WXLWexelFile> screenshotFile;

    /// A report of this moment: gathers what is known about the device and the application, as the library does for
    /// its own reports; the other fields are absent. On the main thread, after the application object exists. What
    /// cannot be read is left out, and nothing is waited for but services of the system, for 20 ms at most.
    WXLWexelReportData();
    /// With that data instead; gathers nothing, on any thread.
    explicit WXLWexelReportData(QVariantMap gatheredData) : gatheredDataDict(std::move(gatheredData)) { }

    [[nodiscard]] QString codingClassName() const override;
    void encodeWithCoder(Coder &coder) const override;
    /// How an archive makes such a report again; internal to the library.
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

} // namespace wexel
