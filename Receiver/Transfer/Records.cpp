#include "Transfer/Records.h"

#include "BundleId.h"
#include "RetentionLimits.h"
#include "Text.h"

#include <Poco/Exception.h>
#include <Poco/JSON/Parser.h>

#include <algorithm>
#include <set>

namespace wexel::receiver {

using Poco::JSON::Array;
using Poco::JSON::Object;

namespace {

constexpr std::int64_t latestTime = std::int64_t(1) << 53; // the largest that JavaScript counts exactly
constexpr std::int64_t largestFile = std::int64_t(1) << 40; // of which databases can sum many

std::string number(const std::optional<std::int64_t> &value)
{
    return value ? std::to_string(*value) : "null";
}

std::string fileText(const StoredFile &file, bool isLost)
{
    return "{\"id\":" + jsonString(file.id) + ",\"name\":" + jsonString(file.name)
        + ",\"size\":" + std::to_string(file.size) + ",\"content_type\":" + jsonString(file.contentType)
        + ",\"sha256\":" + jsonString(file.sha256) + (isLost ? ",\"lost\":true}" : "}");
}

bool isHexadecimal(const std::string &text, std::size_t size)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    return text.size() == size && std::all_of(text.begin(), text.end(), isDigit);
}

std::string checkedBundleId(const std::string &bundleId)
{
    if (const std::string fault = bundleIdFault(bundleId); !fault.empty())
        throw Poco::DataFormatException(fault);
    return bundleId;
}

/// Only what an upload can be given is ever served.
std::string checkedType(const std::string &type)
{
    const std::set<std::string> types = {"image/png", "image/jpeg", "image/gif", "image/webp"};
    return types.contains(type) ? type : "application/octet-stream";
}

std::int64_t numberIn(const Object &object, const std::string &key, std::int64_t largest)
{
    const auto value = object.getValue<Poco::Int64>(key);
    if (value < 0 || value > largest)
        throw Poco::DataFormatException("\"" + key + "\" is out of its bounds");
    return value;
}

StoredFile takeFile(const Object::Ptr &object, ReportRecord &record)
{
    if (!object)
        throw Poco::DataFormatException("a file's record is wrong");
    StoredFile file;
    file.id = object->getValue<std::string>("id");
    file.sha256 = object->getValue<std::string>("sha256");
    if (!isFileId(file.id) || !isHexadecimal(file.sha256, 64))
        throw Poco::DataFormatException("a file's id is wrong");
    file.name = cleanFileName(object->getValue<std::string>("name"));
    file.contentType = checkedType(object->getValue<std::string>("content_type"));
    file.size = static_cast<std::uint64_t>(numberIn(*object, "size", largestFile));
    if (object->optValue("lost", false))
        record.lost.insert(file.id);
    return file;
}

Object::Ptr parsed(const std::string &text)
{
    return Poco::JSON::Parser().parse(text).extract<Object::Ptr>();
}

} // namespace

bool isFileId(const std::string &id)
{
    return isHexadecimal(id, 32);
}

std::string recordText(std::int64_t id, const ReportRecord &record)
{
    const auto file = [&](const StoredFile &one) { return fileText(one, record.lost.contains(one.id)); };
    std::string text = "{\"id\":" + std::to_string(id) + ",\"received\":" + std::to_string(record.received)
        + ",\"bundle_id\":" + jsonString(record.bundleId) + ",\"screenshot\":"
        + (record.files.screenshot ? file(*record.files.screenshot) : "null") + ",\"files\":[";
    const char *separator = "";
    for (const StoredFile &attached : record.files.files) {
        text += separator + file(attached);
        separator = ",";
    }
    return text + "]}\n";
}

ReportRecord readReportRecord(const std::string &text)
{
    const Object::Ptr object = parsed(text);
    ReportRecord record;
    record.received = numberIn(*object, "received", latestTime);
    record.bundleId = checkedBundleId(object->getValue<std::string>("bundle_id"));
    if (!object->isNull("screenshot"))
        record.files.screenshot = takeFile(object->getObject("screenshot"), record);
    const Array::Ptr files = object->getArray("files");
    for (unsigned i = 0; files && i < files->size(); ++i)
        record.files.files.push_back(takeFile(files->getObject(i), record));
    return record;
}

std::string recordText(const ApplicationOverview &application)
{
    return "{\"bundle_id\":" + jsonString(application.application.bundleId)
        + ",\"os\":" + jsonString(application.application.os)
        + ",\"platform\":" + jsonString(application.application.platform)
        + ",\"archived\":" + (application.archived ? "true" : "false")
        + ",\"max_age_days\":" + number(application.retention.maximumAgeDays)
        + ",\"max_bytes\":" + number(application.retention.maximumBytes) + "}\n";
}

ApplicationOverview readApplicationRecord(const std::string &line)
{
    const Object::Ptr object = parsed(line);
    ApplicationOverview overview;
    overview.application = {checkedBundleId(object->getValue<std::string>("bundle_id")),
                            object->getValue<std::string>("os"), object->getValue<std::string>("platform")};
    overview.archived = object->getValue<bool>("archived");
    overview.retention = readRetention(*object);
    return overview;
}

} // namespace wexel::receiver
