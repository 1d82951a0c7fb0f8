#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace wexel::receiver {

/// A receiver in this process, over a folder of its own, that is asked over a real connection.
class FuzzedReceiver
{
public:
    FuzzedReceiver();
    ~FuzzedReceiver();

    /// What holds for whatever bytes a peer sends before it ends its side: an answer in time, and never that the receiver
    /// failed. $TOKEN, $COOKIE, $CSRF and $LENGTH (of what follows the header) in it are made to fit. Returns the property
    /// that does not hold, or null.
    const char *brokenRequestProperty(std::string_view bytes);

private:
    struct Parts;
    std::string completed(std::string_view bytes);

    std::unique_ptr<Parts> m_parts;
};

} // namespace wexel::receiver
