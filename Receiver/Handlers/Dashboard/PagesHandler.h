#pragma once

#include "Http/Handler.h"

#include <map>
#include <string>
#include <string_view>

namespace wexel::receiver {

/// The dashboard's own files, which hold no data and so are for everyone: GET dashboard/assets/{name}, and index.html at
/// GET dashboard/. A browser asks each time whether its copy is still good, so that it never mixes two versions.
class PagesHandler : public Handler
{
public:
    PagesHandler();

    Answer handle(Request &request) override;

private:
    struct Page {
        std::string_view bytes;
        std::string tag; ///< the ETag, quoted
    };

    std::map<std::string, Page, std::less<>> m_pages;
};

/// Sends whoever comes without a path, or without its last slash, to the dashboard.
class FrontDoorHandler : public Handler
{
public:
    Answer handle(Request &request) override;
};

} // namespace wexel::receiver
