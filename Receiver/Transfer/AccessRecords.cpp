#include "Transfer/AccessRecords.h"

#include "Access/ClientStore.h"
#include "BundleId.h"
#include "Text.h"

#include <Poco/Data/RecordSet.h>
#include <Poco/Exception.h>
#include <Poco/JSON/Parser.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;
using Poco::Data::Statement;
using Poco::JSON::Object;

namespace {

std::string passwordLine(Session &session)
{
    std::vector<std::string> passwords;
    session << "SELECT password FROM administrator WHERE id = 1", into(passwords), now;
    return passwords.empty() ? "" : "{\"administrator\":" + jsonString(passwords.front()) + "}\n";
}

std::string bundlesText(Session &session, const std::string &client)
{
    std::vector<std::string> bundles;
    session << "SELECT bundle_id FROM client_bundles WHERE client_id = $1 ORDER BY bundle_id", bind(client),
        into(bundles), now;
    std::string text;
    for (const std::string &bundle : bundles)
        text += (text.empty() ? "" : ",") + jsonString(bundle);
    return '[' + text + ']';
}

std::string clientLines(Session &session)
{
    Statement select(session);
    select << "SELECT id, secret_digest, created, revoked FROM clients ORDER BY id", now;
    RecordSet rows(select);
    std::string lines;
    for (bool more = rows.moveFirst(); more; more = rows.moveNext()) {
        const auto id = rows["id"].convert<std::string>();
        lines += "{\"client\":" + jsonString(id)
            + ",\"secret_digest\":" + jsonString(rows["secret_digest"].convert<std::string>())
            + ",\"created\":" + rows["created"].convert<std::string>() + ",\"revoked\":"
            + rows["revoked"].convert<std::string>() + ",\"bundle_ids\":" + bundlesText(session, id) + "}\n";
    }
    return lines;
}

bool restorePassword(Session &session, const std::string &password)
{
    Statement insert(session);
    insert << "INSERT INTO administrator (id, password) VALUES (1, $1) ON CONFLICT DO NOTHING",
        bind(password);
    return insert.execute() > 0;
}

void failOn(const std::string &fault)
{
    if (!fault.empty())
        throw Poco::DataFormatException(fault);
}

/// Commands print these names as they are.
void checkNames(const Object &client)
{
    failOn(clientIdFault(client.getValue<std::string>("client")));
    for (const Poco::Dynamic::Var &bundle : *client.getArray("bundle_ids"))
        failOn(bundleIdFault(bundle.convert<std::string>()));
}

bool restoreClient(Session &session, const Object &client)
{
    const auto id = client.getValue<std::string>("client");
    Statement insert(session);
    insert << "INSERT INTO clients (id, secret_digest, created, revoked) VALUES ($1, $2, $3, $4) ON CONFLICT "
              "DO NOTHING",
        bind(id), bind(client.getValue<std::string>("secret_digest")),
        bind(client.getValue<Poco::Int64>("created")), bind(client.getValue<Poco::Int64>("revoked"));
    if (insert.execute() == 0)
        return false;
    for (const Poco::Dynamic::Var &bundle : *client.getArray("bundle_ids"))
        session << "INSERT INTO client_bundles (client_id, bundle_id) VALUES ($1, $2)", bind(id),
            bind(bundle.convert<std::string>()), now;
    return true;
}

} // namespace

std::string accessText(Session &session)
{
    return passwordLine(session) + clientLines(session);
}

std::vector<Object::Ptr> readAccess(const std::string &text)
{
    std::vector<Object::Ptr> records;
    for (const std::string_view line : split(text, '\n')) {
        if (line.empty())
            continue;
        records.push_back(Poco::JSON::Parser().parse(std::string(line)).extract<Object::Ptr>());
        if (!records.back()->has("administrator"))
            checkNames(*records.back());
    }
    return records;
}

RestoredAccess restoreAccess(Session &session, const std::vector<Object::Ptr> &records)
{
    using Password = RestoredAccess::Password;
    RestoredAccess result;
    for (const Object::Ptr &object : records) {
        if (object->has("administrator"))
            result.password = restorePassword(session, object->getValue<std::string>("administrator"))
                ? Password::Taken
                : Password::Kept;
        else
            ++(restoreClient(session, *object) ? result.clients : result.knownClients);
    }
    return result;
}

} // namespace wexel::receiver
