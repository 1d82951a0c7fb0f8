#include "Business/WXLStarter.h"

#include "Platform/Log.h"

namespace wexel {

WXLStarter::WXLStarter(WXLAPI &api, WXLAPI::MakeInfoPlist infoPlist)
    : m_api(api)
    , m_infoPlist(std::move(infoPlist))
{
}

void WXLStarter::start(std::function<void(bool)> completion)
{
    const WXLInfoPlist infoPlist = m_infoPlist();
    const auto clientId = infoPlist.apiClientID();
    const auto secret = infoPlist.apiClientSecret();
    // Both on purpose: whoever links the library sees at a glance which credentials were read.
    log(QStringLiteral("API Client Key: %1").arg(logged(clientId)));
    log(QStringLiteral("API Secret Key: %1").arg(logged(secret)));
    m_api.authenticateWith(clientId, secret,
                           [completion = std::move(completion)](const auto &response, const auto &error) {
                               if (response)
                                   log(QStringLiteral("Authentication succeeded"));
                               else
                                   log(QStringLiteral("Authentication failed: %1")
                                           .arg(error ? error->description() : logged({})));
                               completion(response.has_value());
                           });
}

} // namespace wexel
