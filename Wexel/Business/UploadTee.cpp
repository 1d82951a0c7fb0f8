#include "Business/UploadTee.h"

#include <algorithm>

#include "Business/WXLNetworkRequestReporter.h"

namespace wexel {

// Unbuffered, so that each read of Qt is one read of the device, of the same size.
UploadTee::UploadTee(QIODevice &device) : m_device(&device), m_isSequential(device.isSequential())
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    if (!m_isSequential)
        QIODevice::seek(device.pos());
    connect(&device, &QIODevice::readyRead, this, &QIODevice::readyRead);
    connect(&device, &QIODevice::readChannelFinished, this, &QIODevice::readChannelFinished);
}

std::function<QByteArray()> UploadTee::sentBody() const
{
    return [kept = m_kept] { return *kept; };
}

bool UploadTee::isSequential() const
{
    return m_isSequential;
}

qint64 UploadTee::pos() const
{
    return m_device ? m_device->pos() : 0;
}

qint64 UploadTee::size() const
{
    return m_device ? m_device->size() : 0;
}

// Qt goes back to where it began when it has to send the body again.
bool UploadTee::seek(qint64 position)
{
    if (!m_device || !m_device->seek(position))
        return false;
    m_offset = position - m_begin;
    return m_isSequential || QIODevice::seek(position);
}

bool UploadTee::reset()
{
    if (!m_device || !m_device->reset())
        return false;
    m_offset = -m_begin;
    return m_isSequential || QIODevice::seek(0);
}

bool UploadTee::atEnd() const
{
    return !m_device || m_device->atEnd();
}

qint64 UploadTee::bytesAvailable() const
{
    return m_device ? m_device->bytesAvailable() : 0;
}

qint64 UploadTee::readData(char *data, qint64 maximum)
{
    if (!m_device)
        return -1;
    if (m_kept->isEmpty()) {
        m_begin = m_device->pos();
        m_offset = 0;
    }
    const qint64 size = m_device->read(data, maximum);
    if (size <= 0)
        return size;
    if (m_offset == m_kept->size()) // else it is read again, after going back
        m_kept->append(data, std::min(size, WXLNetworkRequestReporter::wantedBodyBytes - m_kept->size()));
    m_offset += size;
    return size;
}

qint64 UploadTee::writeData(const char *, qint64)
{
    return -1;
}

} // namespace wexel
