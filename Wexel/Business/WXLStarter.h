#pragma once

#include <functional>

#include "API/WXLAPI.h"

namespace wexel {

/// Performs one authentication with the credentials of the host's property list.
class WXLStarter
{
public:
    /// \param infoPlist asked afresh at every start
    WXLStarter(WXLAPI &api, WXLAPI::MakeInfoPlist infoPlist);

    /// The completion gets true when authorised; it runs on the session's thread.
    void start(std::function<void(bool)> completion);

private:
    WXLAPI &m_api;
    WXLAPI::MakeInfoPlist m_infoPlist;
};

} // namespace wexel
