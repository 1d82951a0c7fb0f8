#include "Access/Administrator.h"
#include "Access/ClientStore.h"
#include "Access/FirstPassword.h"
#include "Access/Password.h"
#include "Commands.h"
#include "Log.h"
#include "Storage/DataFolder.h"

#include <Poco/DateTimeFormatter.h>
#include <Poco/String.h>
#include <Poco/Timestamp.h>

#include <iomanip>
#include <iostream>
#include <termios.h>
#include <unistd.h>

namespace wexel::receiver {

namespace {

/// Keeps what is typed off the terminal, if there is one.
class Echoless
{
public:
    Echoless() : m_isTerminal(::tcgetattr(STDIN_FILENO, &m_before) == 0)
    {
        termios silent = m_before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (!m_isTerminal)
            return;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        std::cerr << "New password (empty for a random one): ";
    }
    ~Echoless()
    {
        if (!m_isTerminal)
            return;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
        std::cerr << '\n'; // in the place of the one that was typed
    }
    Echoless(const Echoless &) = delete;
    Echoless &operator=(const Echoless &) = delete;

private:
    termios m_before = {};
    bool m_isTerminal;
};

std::string typedPassword()
{
    const Echoless echoless;
    std::string line;
    std::getline(std::cin, line);
    return Poco::trimRight(line);
}

std::string timeText(std::int64_t milliseconds)
{
    return Poco::DateTimeFormatter::format(Poco::Timestamp(milliseconds * 1000), "%Y-%m-%dT%H:%M:%SZ");
}

std::string bundleText(const std::vector<std::string> &bundleIds)
{
    std::string text;
    for (const std::string &bundle : bundleIds)
        text += (text.empty() ? "" : ", ") + escaped(bundle);
    return text.empty() ? "any" : text;
}

void printClients(ClientStore &clients)
{
    std::cout << std::left << std::setw(26) << "ID" << std::setw(22) << "CREATED" << std::setw(22)
              << "LAST USED" << std::setw(9) << "STATE"
              << "BUNDLE IDS\n";
    for (const StoredClient &client : clients.all()) {
        std::cout << std::setw(26) << client.id << std::setw(22) << timeText(client.created) << std::setw(22)
                  << (client.lastUsed ? timeText(*client.lastUsed) : "-") << std::setw(9)
                  << (client.isRevoked ? "revoked" : "good") << bundleText(client.bundleIds) << '\n';
    }
}

int printSecret(const std::string &id, const std::optional<std::string> &secret, const char *failure)
{
    if (!secret)
        throw std::runtime_error(failure);
    std::cout << "Client id: " << id << "\nClient secret: " << *secret << '\n';
    return std::cout.flush() ? 0 : 1;
}

int addClient(const Options &options, ClientStore &clients)
{
    const std::string id = options.clientId.empty() ? randomClientId() : options.clientId;
    if (const std::string fault = clientIdFault(id); !fault.empty())
        throw UsageError(fault);
    return printSecret(id, clients.add(id, options.bundleIds, currentMilliseconds()),
                       "This id is taken, perhaps by a revoked client");
}

} // namespace

int setPassword(const Options &options)
{
    DataFolder data(options.place, DataFolder::Access::Change);
    const std::string typed = typedPassword();
    const std::string password = typed.empty() ? randomPassword() : checkedPassword(typed);
    Administrator(data.database()).setPassword(password);
    if (typed.empty())
        std::cout << "Dashboard password: " << password << '\n';
    else
        std::cout << "The dashboard has another password, and all sessions are over\n";
    return std::cout.flush() ? 0 : 1;
}

int manageClients(const Options &options)
{
    constexpr const char *unknown = "There is no such client";
    DataFolder data(options.place, DataFolder::Access::Change);
    ClientStore clients(data.database());
    if (options.clientAction == "add")
        return addClient(options, clients);
    if (options.clientAction == "rotate")
        return printSecret(options.clientId, clients.rotate(options.clientId), unknown);
    if (options.clientAction == "bind") {
        if (!clients.bindTo(options.clientId, options.bundleIds))
            throw std::runtime_error(unknown);
        std::cout << options.clientId << " may report for "
                  << (options.anyBundle ? "any bundle id" : bundleText(options.bundleIds)) << '\n';
    } else if (options.clientAction == "revoke") {
        if (!clients.revoke(options.clientId))
            throw std::runtime_error(unknown);
        std::cout << options.clientId << " is revoked\n";
    } else {
        printClients(clients);
    }
    return std::cout.flush() ? 0 : 1;
}

} // namespace wexel::receiver
