#pragma once

#include <functional>
#include <memory>
#include <semaphore>

#include <Wexel/WXLWexelReportData.h>

#include "OfflineManager/OperationQueue.h"

namespace wexel {

class WXLAPI;

/// Sends one report and blocks its thread until the answer is in.
class WXLWexelUploadOperation final : public Operation
{
public:
    /// Gives the report when its turn has come; null when there is none to send.
    using ReportSource = std::function<std::shared_ptr<WXLWexelReportData>()>;

    WXLWexelUploadOperation(ReportSource reportData, WXLAPI &api);

    void main() override;

    // The outcome; read after `main`.
    [[nodiscard]] bool hadNothingToSend() const { return m_nothingToSend; }
    [[nodiscard]] bool isUploadedSuccessfully() const { return m_uploadedSuccessfully; }
    /// Code of the error of a failed send, else 0.
    [[nodiscard]] int uploadErrorCode() const { return m_uploadErrorCode; }
    [[nodiscard]] QString description() const;

private:
    ReportSource m_reportData;
    WXLAPI &m_api;
    std::binary_semaphore m_semaphore{0};
    bool m_nothingToSend = false;
    bool m_uploadedSuccessfully = false;
    int m_uploadErrorCode = 0;
};

} // namespace wexel
