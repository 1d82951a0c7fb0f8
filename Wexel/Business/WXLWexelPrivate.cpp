#include "Business/WXLWexelPrivate.h"

#include <utility>

#include <QImage>

#include "Business/Flow.h"
#include "Business/ImageData.h"
#include "Business/ReportAssembly.h"
#include "Business/ReportKeys.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLBlackBox.h"
#include "Helpers/WXLGlobalCache.h"
#include "OfflineManager/WXLFileManager.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/Log.h"

namespace wexel {

WXLWexelPrivate::WXLWexelPrivate(Collaborators collaborators) : m_with(std::move(collaborators)) { }

WXLWexelPrivate::~WXLWexelPrivate() = default;

void WXLWexelPrivate::startWithInvocationEvents(unsigned events)
{
    WXLGlobalCache::shared().setTopWindowLevel(m_with.flow.topWindowLevel());
    m_with.flow.startInvocation(events, [this] { display(); });
    if (!m_starter)
        m_starter = std::make_unique<WXLStarter>(m_with.api, m_with.infoPlist);
    addObservers();
    authorizeWexel();
    m_with.blackBox.startRecording();
    m_with.startSessions();
}

void WXLWexelPrivate::display()
{
    if (std::exchange(m_isFlowOpen, true))
        return;
    m_with.flow.open({.uploader = uploader(),
                      .appRepository = m_with.appRepository,
                      .prepareReportData = [this] { return preparedReportData(); }},
                     [this] { m_isFlowOpen = false; });
}

void WXLWexelPrivate::setBlackBoxEnabled(bool enabled)
{
    m_with.blackBox.setBlackBoxEnabled(enabled);
}

WXLFileManager &WXLWexelPrivate::fileManager()
{
    std::call_once(m_fileManagerOnce,
                   [this] { m_fileManager = std::make_unique<WXLFileManager>(m_with.documentsDirectory); });
    return *m_fileManager;
}

WXLUploader &WXLWexelPrivate::uploader()
{
    (void)makeUploader();
    return *m_uploader;
}

bool WXLWexelPrivate::makeUploader()
{
    bool made = false;
    std::call_once(m_uploaderOnce, [&] {
        m_uploader = std::make_unique<WXLUploader>(fileManager(), m_with.api, m_with.appRepository,
                                                   m_with.scheduler, m_with.notifications);
        made = true;
    });
    return made;
}

void WXLWexelPrivate::autoReport(bool attachScreenshot, const std::optional<QString> &description)
{
    if (!m_with.appRepository.applicationActive())
        return;
    const auto reportData = preparedReportData();
    if (description) {
        QVariantMap gathered = reportData->gatheredDataDict.value_or(QVariantMap());
        gathered.insert(kWXLUserInput, *description);
        reportData->gatheredDataDict = gathered;
    }
    reportData->screenshotFile = screenshotFile(attachScreenshot);
    uploader().uploadData(reportData);
}

QVariantMap WXLWexelPrivate::setupDefaultData() const
{
    return m_with.reportAssembly.setupDefaultData();
}

std::shared_ptr<WXLWexelReportData> WXLWexelPrivate::preparedReportData() const
{
    auto reportData = m_with.reportAssembly.makeReportData();
    const auto block = onPrepareData; // a copy: the hook may replace itself
    if (!block)
        return reportData;
    auto prepared = block(reportData);
    return prepared ? prepared : reportData;
}

std::shared_ptr<WXLWexelFile> WXLWexelPrivate::screenshotFile(bool attach) const
{
    const QImage screenshot = attach ? m_with.flow.takeScreenshot() : QImage();
    if (!screenshot.isNull())
        return std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), getImageData(screenshot));
    QImage empty(1, 1, QImage::Format_RGB32);
    empty.fill(Qt::white);
    return std::make_shared<WXLWexelFile>(QStringLiteral("emptyScreenshot.jpg"), getImageData(empty));
}

} // namespace wexel
