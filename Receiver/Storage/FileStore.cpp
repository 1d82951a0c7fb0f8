#include "Storage/FileStore.h"

namespace wexel::receiver {

void IncomingFile::write(std::string_view bytes)
{
    m_digest.update(bytes.data(), bytes.size());
    m_size += bytes.size();
    append(bytes);
}

std::string IncomingFile::publish()
{
    finish();
    return Poco::DigestEngine::digestToHex(m_digest.digest());
}

} // namespace wexel::receiver
