#include "Handlers/Dashboard/PagesHandler.h"

#include "Http/EmbeddedFiles.h"

#include <Poco/Crypto/DigestEngine.h>

namespace wexel::receiver {

namespace {

const std::string startPage = "index.html";

std::string tagOf(std::string_view bytes)
{
    Poco::Crypto::DigestEngine digest("SHA256");
    digest.update(bytes.data(), bytes.size());
    return '"' + Poco::DigestEngine::digestToHex(digest.digest()).substr(0, 32) + '"';
}

std::string contentTypeOf(std::string_view name)
{
    if (name.ends_with(".html"))
        return "text/html; charset=utf-8";
    if (name.ends_with(".css"))
        return "text/css; charset=utf-8";
    if (name.ends_with(".js"))
        return "text/javascript; charset=utf-8";
    if (name.ends_with(".svg"))
        return "image/svg+xml";
    return "text/plain; charset=utf-8";
}

} // namespace

PagesHandler::PagesHandler()
{
    for (const EmbeddedFile &file : embeddedFiles())
        m_pages.emplace(file.name, Page{file.bytes, tagOf(file.bytes)});
}

Answer PagesHandler::handle(Request &request)
{
    const std::string &name = request.parameter.empty() ? startPage : request.parameter;
    const auto page = m_pages.find(name);
    if (page == m_pages.end())
        throw HttpError(Status::HTTP_NOT_FOUND, "There is nothing at this address");
    Answer answer = {.contentType = contentTypeOf(name),
                     .headers = {{"ETag", page->second.tag}, {"Cache-Control", "no-cache"}}};
    if (request.header.get("If-None-Match", "").find(page->second.tag) != std::string::npos)
        answer.status = Status::HTTP_NOT_MODIFIED;
    else
        answer.body = page->second.bytes;
    return answer;
}

Answer FrontDoorHandler::handle(Request &)
{
    // A relative address holds behind a proxy that puts a path before ours.
    return {.status = Status::HTTP_SEE_OTHER, .headers = {{"Location", "dashboard/"}}};
}

} // namespace wexel::receiver
