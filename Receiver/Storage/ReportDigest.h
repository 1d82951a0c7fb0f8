#pragma once

#include "Storage/ReportStore.h"

#include <Poco/Data/Session.h>

#include <optional>
#include <string>

namespace wexel::receiver {

/// Tells whether a report was taken before. A report is known by two digests: of its text, which tells a request that is
/// sent again, and of its content with that of its files in place of their addresses, which tells a report whose files
/// were uploaded again. Digests stay when the report is removed.
class ReportDigest
{
public:
    /// The digest of the report's text, which takes a while for a long one: to be made before the transaction.
    static std::string ofText(const NewReport &report);

    /// To be made while the files that the report names are there, inside the transaction that stores it.
    ReportDigest(Poco::Data::Session &session, const NewReport &report, const std::string &ofText);

    /// The id that the report was given when it was taken first.
    std::optional<std::int64_t> find(Poco::Data::Session &session) const;

    /// Fails if another transaction has just taken the same report.
    void insert(Poco::Data::Session &session, std::int64_t reportId) const;

    /// From now on this text, too, is known as the report \a reportId.
    void insertText(Poco::Data::Session &session, std::int64_t reportId) const;

private:
    std::string m_text;
    std::string m_content;
};

} // namespace wexel::receiver
