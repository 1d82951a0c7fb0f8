#include "Transfer/Records.h"

#include "BundleId.h"
#include "Text.h"

#include <Poco/JSON/Parser.h>

#include <algorithm>
#include <set>
#include <stdexcept>

namespace wexel::receiver {

using Poco::JSON::Array;
using Poco::JSON::Object;

namespace {

std::string number(const std::optional<std::int64_t> &value)
{
    return value ? std::to_string(*value) : "null";
}

std::string fileText(const StoredFile &file)
{
    return "{\"id\":" + jsonString(file.id) + ",\"name\":" + jsonString(file.name)
        + ",\"size\":" + std::to_string(file.size) + ",\"content_type\":" + jsonString(file.contentType)
        + ",\"sha256\":" + jsonString(file.sha256) + "}";
}

std::string checkedFileId(const std::string &id)
{
    if (!isFileId(id))
        throw std::runtime_error("a file's id is wrong");
    return id;
}

std::string checkedBundleId(const std::string &bundleId)
{
    if (const std::string fault = bundleIdFault(bundleId); !fault.empty())
        throw std::runtime_error(fault);
    return bundleId;
}

/// Only what an upload can be given is ever served.
std::string checkedType(const std::string &type)
{
    const std::set<std::string> types = {"image/png", "image/jpeg", "image/gif", "image/webp"};
    return types.contains(type) ? type : "application/octet-stream";
}

StoredFile fileOf(const Object::Ptr &object)
{
    if (!object)
        throw std::runtime_error("a file's record is wrong");
    StoredFile file;
    file.id = checkedFileId(object->getValue<std::string>("id"));
    file.sha256 = object->getValue<std::string>("sha256");
    file.name = cleanFileName(object->getValue<std::string>("name"));
    file.contentType = checkedType(object->getValue<std::string>("content_type"));
    file.size = object->getValue<Poco::UInt64>("size");
    return file;
}

Object::Ptr parsed(const std::string &text)
{
    return Poco::JSON::Parser().parse(text).extract<Object::Ptr>();
}

std::optional<std::int64_t> limitOf(const Object &object, const std::string &key)
{
    return object.isNull(key) ? std::nullopt : std::optional<std::int64_t>(object.getValue<Poco::Int64>(key));
}

} // namespace

bool isFileId(const std::string &id)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    return id.size() == 32 && std::all_of(id.begin(), id.end(), isDigit);
}

std::string recordText(std::int64_t id, const ReportRecord &record)
{
    std::string text = "{\"id\":" + std::to_string(id) + ",\"received\":" + std::to_string(record.received)
        + ",\"bundle_id\":" + jsonString(record.bundleId) + ",\"screenshot\":"
        + (record.files.screenshot ? fileText(*record.files.screenshot) : "null") + ",\"files\":[";
    const char *separator = "";
    for (const StoredFile &file : record.files.files) {
        text += separator + fileText(file);
        separator = ",";
    }
    return text + "]}\n";
}

ReportRecord readReportRecord(const std::string &text)
{
    const Object::Ptr object = parsed(text);
    ReportRecord record;
    record.received = object->getValue<Poco::Int64>("received");
    record.bundleId = checkedBundleId(object->getValue<std::string>("bundle_id"));
    if (!object->isNull("screenshot"))
        record.files.screenshot = fileOf(object->getObject("screenshot"));
    const Array::Ptr files = object->getArray("files");
    for (unsigned i = 0; files && i < files->size(); ++i)
        record.files.files.push_back(fileOf(files->getObject(i)));
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
    overview.retention = {limitOf(*object, "max_age_days"), limitOf(*object, "max_bytes")};
    return overview;
}

} // namespace wexel::receiver
