#include <Wexel/WXLWexelReportData.h>

#include "Platform/KeyedArchiver.h"

namespace wexel {

namespace {

const QString kQuickFactsKey = QStringLiteral("quickFactsKey");
const QString kAttachedFilesKey = QStringLiteral("attachedFilesKey");
const QString kGatheredDataKey = QStringLiteral("kGatheredDataKey"); // the "k" is the archive's format
const QString kScreenshotFileKey = QStringLiteral("screenshotFileKey");

QVariant archivable(const QList<std::shared_ptr<WXLWexelFile>> &files)
{
    QVariantList list;
    for (const auto &file : files) {
        if (file)
            list.append(QVariant::fromValue<ArchivedObject>(file));
    }
    return list;
}

QList<std::shared_ptr<WXLWexelFile>> filesOf(const QVariantList &list)
{
    QList<std::shared_ptr<WXLWexelFile>> files;
    for (const QVariant &entry : list) {
        if (auto file = std::dynamic_pointer_cast<WXLWexelFile>(entry.value<ArchivedObject>()))
            files.append(std::move(file));
    }
    return files;
}

ArchivedObject initWithCoder(const Coder &coder)
{
    const auto gathered = coder.decodeObject(kGatheredDataKey);
    auto report = std::make_shared<WXLWexelReportData>(gathered.toMap());
    if (!gathered.isValid())
        report->gatheredDataDict.reset();
    if (const auto files = coder.decodeObject(kAttachedFilesKey); files.isValid())
        report->attachedFiles = filesOf(files.toList());
    report->screenshotFile = coder.decodeObjectOf<WXLWexelFile>(kScreenshotFileKey);
    report->quickFacts = coder.decodeString(kQuickFactsKey);
    return report;
}

} // namespace

QString WXLWexelReportData::codingClassName() const
{
    return archivableClass().name;
}

void WXLWexelReportData::encodeWithCoder(Coder &coder) const
{
    if (gatheredDataDict)
        coder.encodeObject(QVariant(*gatheredDataDict), kGatheredDataKey);
    if (attachedFiles)
        coder.encodeObject(archivable(*attachedFiles), kAttachedFilesKey);
    coder.encodeObject(ArchivedObject(screenshotFile), kScreenshotFileKey);
    coder.encodeObject(quickFacts, kQuickFactsKey);
}

const ArchivableClass &WXLWexelReportData::archivableClass()
{
    static const auto &instance
        = *new ArchivableClass{QStringLiteral("WXLWexelReportData"), initWithCoder}; // outlives every thread
    return instance;
}

} // namespace wexel
