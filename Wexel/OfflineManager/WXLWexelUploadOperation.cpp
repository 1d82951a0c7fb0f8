#include "OfflineManager/WXLWexelUploadOperation.h"

#include "API/WXLAPI.h"
#include "Platform/Log.h"

namespace wexel {

WXLWexelUploadOperation::WXLWexelUploadOperation(ReportSource reportData, WXLAPI &api)
    : m_reportData(std::move(reportData))
    , m_api(api)
{
}

void WXLWexelUploadOperation::main()
{
    const auto reportData = m_reportData();
    m_nothingToSend = !reportData;
    if (m_nothingToSend)
        return;
    log(QStringLiteral("WXLWexelUploadOperation: starting operation %1").arg(description()));
    m_api.sendReport(WXLAPIReport(*reportData), [this](const std::optional<Error> &error) {
        if (error) {
            m_uploadErrorCode = error->code;
            log(QStringLiteral("WXLWexelUploadOperation: operation completed %1 with error %2")
                    .arg(description(), error->localizedDescription()));
        } else {
            log(QStringLiteral("WXLWexelUploadOperation: operation completed %1").arg(description()));
        }
        m_uploadedSuccessfully = !error;
        m_semaphore.release();
    });
    m_semaphore.acquire();
}

QString WXLWexelUploadOperation::description() const
{
    return QStringLiteral("<WXLWexelUploadOperation: 0x%1>").arg(reinterpret_cast<quintptr>(this), 0, 16);
}

} // namespace wexel
