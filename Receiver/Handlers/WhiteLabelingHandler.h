#pragma once

#include "Http/Handler.h"

namespace wexel::receiver {

/// GET api/1.0/white-labeling: the branding, or 404 if there is none.
class WhiteLabelingHandler : public Handler
{
public:
    /// \a json may be empty.
    explicit WhiteLabelingHandler(std::string json) : m_json(std::move(json)) { }

    Answer handle(Request &) override
    {
        if (m_json.empty())
            throw HttpError(Status::HTTP_NOT_FOUND, "No branding is set up");
        return jsonAnswer(m_json);
    }

private:
    std::string m_json;
};

} // namespace wexel::receiver
