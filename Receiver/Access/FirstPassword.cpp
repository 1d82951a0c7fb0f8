#include "Access/FirstPassword.h"

#include "Access/Administrator.h"
#include "Access/Password.h"

#include <Poco/String.h>

#include <fstream>

namespace wexel::receiver {

std::optional<std::string> givenPassword(const Options &options)
{
    const std::string &path = options.adminPasswordFile;
    if (path.empty())
        return std::nullopt;
    std::ifstream file(path);
    std::string line;
    if (!file || !std::getline(file, line))
        throw UsageError("--admin-password-file " + path + ": it can't be read, or is empty");
    try {
        return checkedPassword(Poco::trimRight(line));
    } catch (const UsageError &error) {
        throw UsageError("--admin-password-file " + path + ": " + error.what());
    }
}

std::optional<std::string> setFirstPassword(const std::optional<std::string> &given, Database &database)
{
    Administrator administrator(database);
    if (administrator.hasPassword())
        return std::nullopt;
    const std::string password = given ? *given : randomPassword();
    const bool isSet = administrator.setFirstPassword(password);
    return isSet && !given ? std::optional(password) : std::nullopt;
}

std::string checkedPassword(const std::string &password)
{
    if (password.size() < minimumPasswordLength)
        throw UsageError("A password has at least " + std::to_string(minimumPasswordLength) + " characters");
    return password;
}

} // namespace wexel::receiver
