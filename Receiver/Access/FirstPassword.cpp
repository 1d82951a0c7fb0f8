#include "Access/FirstPassword.h"

#include "Access/Administrator.h"
#include "Access/Password.h"

#include <Poco/String.h>

#include <fstream>

namespace wexel::receiver {

namespace {

std::string readPassword(const std::string &path)
{
    std::ifstream file(path);
    std::string line;
    if (!file || !std::getline(file, line))
        throw UsageError("The password file " + path + " can't be read, or is empty");
    return checkedPassword(Poco::trimRight(line));
}

} // namespace

std::optional<std::string> setFirstPassword(const Options &options, Database &database)
{
    Administrator administrator(database);
    if (administrator.hasPassword())
        return std::nullopt;
    const bool isGiven = !options.adminPasswordFile.empty();
    const std::string password = isGiven ? readPassword(options.adminPasswordFile) : randomPassword();
    const bool isSet = administrator.setFirstPassword(password);
    return isSet && !isGiven ? std::optional(password) : std::nullopt;
}

std::string checkedPassword(const std::string &password)
{
    if (password.size() < minimumPasswordLength)
        throw UsageError("A password has at least " + std::to_string(minimumPasswordLength) + " characters");
    return password;
}

} // namespace wexel::receiver
