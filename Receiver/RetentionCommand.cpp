#include "Commands.h"
#include "Log.h"
#include "Storage/DataFolder.h"

#include <iostream>
#include <optional>
#include <stdexcept>

namespace wexel::receiver {

namespace {

Retention retentionOf(const std::string &bundleId, DataFolder &data)
{
    for (const ApplicationOverview &application : data.reports().applications()) {
        if (application.application.bundleId == bundleId)
            return application.retention;
    }
    throw std::runtime_error("There is no such application: " + escaped(bundleId));
}

std::optional<std::int64_t> limitOf(std::uint64_t value)
{
    return value == 0 ? std::nullopt : std::optional(static_cast<std::int64_t>(value));
}

std::string limitText(const std::optional<std::int64_t> &limit)
{
    return limit ? std::to_string(*limit) : "none";
}

} // namespace

int setRetention(const Options &options)
{
    constexpr std::uint64_t megabyte = 1024 * 1024;
    const bool changes = options.maximumAgeDays || options.maximumMegabytes;
    DataFolder data(options.place, changes ? DataFolder::Access::Change : DataFolder::Access::Read);
    Retention retention = retentionOf(options.bundleId, data);
    if (options.maximumAgeDays)
        retention.maximumAgeDays = limitOf(*options.maximumAgeDays);
    if (options.maximumMegabytes)
        retention.maximumBytes = limitOf(*options.maximumMegabytes * megabyte);
    if (changes)
        data.reports().setRetention(options.bundleId, retention);
    std::cout << "max_age_days: " << limitText(retention.maximumAgeDays)
              << "\nmax_bytes: " << limitText(retention.maximumBytes) << '\n';
    return std::cout.flush() ? 0 : 1;
}

} // namespace wexel::receiver
