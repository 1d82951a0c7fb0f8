#include "Handlers/Dashboard/ClientHandlers.h"

#include "BundleId.h"
#include "Http/JsonBody.h"
#include "Log.h"

#include <Poco/JSON/Array.h>

#include <sstream>

namespace wexel::receiver {

using Poco::JSON::Array;
using Poco::JSON::Object;

namespace {

constexpr std::size_t maximumBundles = 100;

Object::Ptr describe(const StoredClient &client)
{
    Object::Ptr object = new Object(Poco::JSON_PRESERVE_KEY_ORDER);
    Array::Ptr bundles = new Array;
    for (const std::string &bundle : client.bundleIds)
        bundles->add(bundle);
    object->set("id", client.id);
    object->set("bundle_ids", bundles);
    object->set("created", client.created);
    object->set("last_used", client.lastUsed ? Poco::Dynamic::Var(*client.lastUsed) : Poco::Dynamic::Var());
    object->set("revoked", client.isRevoked);
    object->set("from_command_line", false);
    return object;
}

Object::Ptr describeCommandLine(const std::string &id)
{
    Object::Ptr object = describe({id, {}, 0, std::nullopt, false});
    object->set("created", Poco::Dynamic::Var());
    object->set("from_command_line", true);
    return object;
}

std::string bundleIn(const Poco::Dynamic::Var &value)
{
    if (!value.isString())
        throw HttpError(Status::HTTP_BAD_REQUEST, "A bundle id is a text");
    std::string bundle = value.extract<std::string>();
    if (const std::string fault = bundleIdFault(bundle); !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    return bundle;
}

std::vector<std::string> bundlesIn(const Object &object)
{
    std::vector<std::string> bundles;
    const Array::Ptr array = object.getArray("bundle_ids");
    if (!array || array->size() > maximumBundles)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "Expected under \"bundle_ids\" at most " + std::to_string(maximumBundles) + " texts");
    for (const Poco::Dynamic::Var &value : *array)
        bundles.push_back(bundleIn(value));
    return bundles;
}

std::string idIn(const Object &object)
{
    if (!object.has("id"))
        return randomClientId();
    std::string id = textIn(object, "id");
    if (const std::string fault = clientIdFault(id); !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    return id;
}

[[noreturn]] void failUnknown()
{
    throw HttpError(Status::HTTP_NOT_FOUND, "There is no such client, or it is one of the command line");
}

/// The id in the address. One that can't be a client's is not looked up: PostgreSQL would fail on bytes that are no text.
const std::string &idOf(const Request &request)
{
    if (!clientIdFault(request.parameter).empty())
        failUnknown();
    return request.parameter;
}

void logChange(const std::string &event, const Request &request, const std::string &id)
{
    logEvent(event, {{"peer", request.peer}, {"client", id}});
}

} // namespace

Answer ClientsHandler::handle(Request &)
{
    Array::Ptr clients = new Array;
    for (const std::string &id : m_commandLine.ids())
        clients->add(describeCommandLine(id));
    for (const StoredClient &client : m_store.all())
        clients->add(describe(client));
    std::ostringstream text;
    clients->stringify(text);
    return jsonAnswer("{\"clients\":" + text.str() + "}");
}

Answer AddClientHandler::handle(Request &request)
{
    const Object::Ptr body = readJsonBody(request);
    const std::string id = idIn(*body);
    const auto bundles = body->has("bundle_ids") ? bundlesIn(*body) : std::vector<std::string>();
    const auto secret
        = m_commandLine.contains(id) ? std::nullopt : m_store.add(id, bundles, currentMilliseconds());
    if (!secret)
        throw HttpError(Status::HTTP_CONFLICT, "This id is taken, perhaps by a revoked client");
    logChange("client_added", request, id);
    return jsonAnswer("{\"id\":" + jsonString(id) + ",\"secret\":" + jsonString(*secret) + "}",
                      Status::HTTP_CREATED);
}

Answer RotateClientHandler::handle(Request &request)
{
    const auto secret = m_store.rotate(idOf(request));
    if (!secret)
        failUnknown();
    logChange("client_rotated", request, request.parameter);
    return jsonAnswer("{\"secret\":" + jsonString(*secret) + "}");
}

Answer BindClientHandler::handle(Request &request)
{
    if (!m_store.bindTo(idOf(request), bundlesIn(*readJsonBody(request))))
        failUnknown();
    logChange("client_bound", request, request.parameter);
    return {.status = Status::HTTP_NO_CONTENT};
}

Answer RevokeClientHandler::handle(Request &request)
{
    if (!m_store.revoke(idOf(request)))
        failUnknown();
    logChange("client_revoked", request, request.parameter);
    return {.status = Status::HTTP_NO_CONTENT};
}

} // namespace wexel::receiver
