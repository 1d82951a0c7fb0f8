#pragma once

#include <functional>
#include <memory>

#include <QIODevice>
#include <QPointer>

namespace wexel {

/// Stands in for the device that a request is sent from: passes every question on as it comes, and keeps the beginning
/// of what is read. On the thread of the device, which need not outlive it.
class UploadTee final : public QIODevice
{
public:
    explicit UploadTee(QIODevice &device);

    /// Gives what was read so far, even when the tee has gone.
    [[nodiscard]] std::function<QByteArray()> sentBody() const;

    [[nodiscard]] bool isSequential() const override;
    [[nodiscard]] qint64 pos() const override;
    [[nodiscard]] qint64 size() const override;
    bool seek(qint64 position) override;
    bool reset() override;
    [[nodiscard]] bool atEnd() const override;
    [[nodiscard]] qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maximum) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    QPointer<QIODevice> m_device;
    const bool m_isSequential;
    qint64 m_begin = 0; ///< the position of the first byte that is kept
    qint64 m_offset = 0; ///< of the next byte from there
    std::shared_ptr<QByteArray> m_kept = std::make_shared<QByteArray>();
};

} // namespace wexel
