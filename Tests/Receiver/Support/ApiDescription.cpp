#include "Support/ApiDescription.h"

#include "Support/Program.h"

#include <Poco/JSON/Parser.h>
#include <Poco/JSON/Query.h>
#include <Poco/String.h>

#include <valijson/adapters/poco_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <functional>
#include <sstream>

using Poco::Dynamic::Var;
using Poco::JSON::Array;
using Poco::JSON::Object;
using Adapter = valijson::adapters::PocoJsonAdapter;

namespace {

/// The path with each {name} replaced.
std::string replaced(const std::string &path, const std::function<std::string(const std::string &)> &value)
{
    std::string result;
    std::size_t position = 0;
    for (std::size_t open = 0; (open = path.find('{', position)) != path.npos;) {
        const std::size_t close = path.find('}', open);
        result += path.substr(position, open - position) + value(path.substr(open + 1, close - open - 1));
        position = close + 1;
    }
    return result + path.substr(position);
}

std::vector<Object::Ptr> objects(const Object::Ptr &owner, const std::string &key)
{
    std::vector<Object::Ptr> result;
    const Array::Ptr array = owner->getArray(key);
    for (unsigned i = 0; !array.isNull() && i < array->size(); ++i)
        result.push_back(array->getObject(i));
    return result;
}

Object::Ptr bodyContent(const Object::Ptr &description)
{
    return description->has("requestBody") ? description->getObject("requestBody")->getObject("content")
                                           : Object::Ptr(new Object);
}

} // namespace

std::string ApiDescription::Operation::route() const
{
    return method + " " + replaced(path, [](const std::string &) { return "{}"; });
}

std::string ApiDescription::Operation::examplePath() const
{
    return replaced(path, [&](const std::string &name) {
        for (const Object::Ptr &parameter : objects(description, "parameters")) {
            if (parameter->getValue<std::string>("name") == name)
                return parameter->get("example").convert<std::string>();
        }
        return std::string();
    });
}

std::string ApiDescription::Operation::bodyType() const
{
    const Object::Ptr content = bodyContent(description);
    return content->size() > 0 ? content->begin()->first : "";
}

std::string ApiDescription::Operation::exampleBody() const
{
    if (bodyType().empty() || !bodyContent(description)->getObject(bodyType())->has("example"))
        return {};
    const Object::Ptr example = bodyContent(description)->getObject(bodyType())->getObject("example");
    std::ostringstream text;
    if (bodyType() == "application/json")
        example->stringify(text);
    else
        for (const auto &[name, value] : *example)
            text << name << '=' << value.toString() << '&';
    return text.str();
}

std::vector<Object::Ptr> ApiDescription::Operation::queryParameters() const
{
    std::vector<Object::Ptr> parameters = objects(description, "parameters");
    std::erase_if(parameters, [](const Object::Ptr &parameter) {
        return parameter->getValue<std::string>("in") != "query";
    });
    return parameters;
}

bool ApiDescription::Operation::needs(const std::string &scheme) const
{
    const auto schemes = objects(description, "security");
    return !schemes.empty() && schemes.front()->has(scheme);
}

ApiDescription::ApiDescription()
    : m_document(Poco::JSON::Parser().parse(readFile(WEXEL_OPENAPI)).extract<Object::Ptr>())
{
    for (const auto &[path, methods] : *m_document->getObject("paths")) {
        for (const auto &[method, description] : *methods.extract<Object::Ptr>())
            m_operations.push_back({Poco::toUpper(method), path, description.extract<Object::Ptr>()});
    }
}

std::string ApiDescription::version() const
{
    return m_document->getObject("info")->getValue<std::string>("version");
}

std::string ApiDescription::fault(const Operation &operation, int status, const std::string &contentType,
                                  const std::string &body) const
{
    const Object::Ptr responses = operation.description->getObject("responses");
    if (!responses->has(std::to_string(status)))
        return "status " + std::to_string(status) + " is not described";
    const Object::Ptr response = resolved(responses->getObject(std::to_string(status)));
    if (!response->has("content"))
        return body.empty() ? "" : "a body is not described";
    const Object::Ptr content = response->getObject("content");
    if (!content->has(contentType))
        return "content of the type " + contentType + " is not described";
    const Object::Ptr schema = content->getObject(contentType)->getObject("schema");
    return schema.isNull() ? "" : schemaFault(schema, body);
}

Object::Ptr ApiDescription::resolved(Object::Ptr object) const
{
    while (object->has("$ref")) {
        std::string path = object->getValue<std::string>("$ref").substr(2); // behind #/
        std::replace(path.begin(), path.end(), '/', '.');
        object = Poco::JSON::Query(m_document).findObject(path);
    }
    return object;
}

std::string ApiDescription::schemaFault(const Object::Ptr &schema, const std::string &body) const
{
    Object::Ptr root = new Object; // with the components beside it, to which the schema refers
    Array::Ptr all = new Array;
    all->add(schema);
    root->set("allOf", all);
    root->set("components", m_document->getObject("components"));
    valijson::Schema parsed;
    valijson::SchemaParser(valijson::SchemaParser::kDraft7).populateSchema(Adapter(Var(root)), parsed);
    valijson::ValidationResults results;
    Var value;
    try {
        value = Poco::JSON::Parser().parse(body);
    } catch (const Poco::Exception &) {
        return "not JSON: " + body;
    }
    if (valijson::Validator().validate(parsed, Adapter(value), &results))
        return {};
    std::string text;
    for (valijson::ValidationResults::Error error; results.popError(error);) {
        for (const std::string &step : error.context)
            text += step;
        text += ": " + error.description + '\n';
    }
    return text + body;
}
