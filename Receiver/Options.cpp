#include "Options.h"

#include "BundleId.h"
#include "OptionSet.h"
#include "RetentionLimits.h"
#include "Storage/DatabaseAddress.h"
#include "WhiteLabeling.h"

#include <Poco/Exception.h>
#include <Poco/NumberParser.h>
#include <Poco/URI.h>
#include <Poco/Util/OptionException.h>
#include <Poco/Util/OptionProcessor.h>

#include <arpa/inet.h>
#include <functional>
#include <map>
#include <set>

namespace wexel::receiver {

namespace {

using Poco::Util::Option;
using Command = Options::Command;

std::uint64_t number(const std::string &what, const std::string &text, std::uint64_t least,
                     std::uint64_t most)
{
    Poco::UInt64 value = 0;
    if (!Poco::NumberParser::tryParseUnsigned64(text, value) || value < least || value > most)
        throw UsageError(what + " must be a number from " + std::to_string(least) + " to "
                         + std::to_string(most) + ", not \"" + text + "\"");
    return value;
}

void setListen(Options &options, const std::string &text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == text.npos || colon == 0)
        throw UsageError("--listen must be HOST:PORT, for example 127.0.0.1:8787 or [::1]:8787, not \"" + text
                         + "\"");
    options.listenHost = text.substr(0, colon);
    if (options.listenHost.front() == '[' && options.listenHost.back() == ']')
        options.listenHost = options.listenHost.substr(1, options.listenHost.size() - 2);
    options.listenPort
        = static_cast<std::uint16_t>(number("--listen: the port", text.substr(colon + 1), 0, 65535));
}

void setPublicUrl(Options &options, std::string text)
{
    if (!text.ends_with('/'))
        text += '/';
    try {
        const Poco::URI uri(text);
        if ((uri.getScheme() == "http" || uri.getScheme() == "https") && !uri.getHost().empty()
            && uri.getUserInfo().empty() && uri.getQuery().empty() && uri.getFragment().empty()) {
            options.publicUrl = uri.toString(); // the scheme in small letters
            return;
        }
    } catch (const Poco::SyntaxException &) {
    }
    throw UsageError("--public-url must be an address such as https://reports.example.org/, not \"" + text
                     + "\"");
}

void addTrustedProxy(Options &options, const std::string &text)
{
    if (!options.trustedProxies.add(text))
        throw UsageError("--trusted-proxy must be an address or a network such as 10.0.0.0/8, not \"" + text
                         + "\"");
}

std::string checkedBundleId(const std::string &bundleId)
{
    if (const std::string fault = bundleIdFault(bundleId); !fault.empty())
        throw UsageError(fault);
    return bundleId;
}

void apply(Options &options, const std::string &name, const std::string &value)
{
    constexpr std::uint64_t gigabyte = 1024 * 1024 * 1024;
    constexpr std::uint64_t tenYears = 10ULL * 366 * 24 * 3600;
    const auto asNumber = [&](std::uint64_t most) { return number("--" + name, value, 1, most); };
    const auto asInt = [&](std::uint64_t most) { return static_cast<int>(asNumber(most)); };
    const std::map<std::string, std::function<void()>> setters = {
        {"data", [&] { options.place.data = value; }},
        {"database", [&] { options.place.database = value; }},
        {"files", [&] { options.place.files = value; }},
        {"listen", [&] { setListen(options, value); }},
        {"client", [&] { options.clients.add(value); }},
        {"clients", [&] { options.clients.addFromFile(value); }},
        {"admin-password-file", [&] { options.adminPasswordFile = value; }},
        {"tls-cert", [&] { options.certificateFile = value; }},
        {"tls-key", [&] { options.privateKeyFile = value; }},
        {"public-url", [&] { setPublicUrl(options, value); }},
        {"trusted-proxy", [&] { addTrustedProxy(options, value); }},
        {"white-labeling", [&] { options.whiteLabeling = readWhiteLabeling(value); }},
        {"max-file-size", [&] { options.maximumFileSize = asNumber(1024 * gigabyte); }},
        {"max-report-size", [&] { options.maximumReportSize = asNumber(gigabyte / 2); }},
        {"max-connections", [&] { options.maximumConnections = asInt(10000); }},
        {"request-timeout", [&] { options.requestTimeout = asInt(3600); }},
        {"least-rate", [&] { options.leastRate = asNumber(gigabyte); }},
        {"idle-timeout", [&] { options.idleTimeout = asInt(3600); }},
        {"token-lifetime", [&] { options.tokenLifetime = asInt(tenYears); }},
        {"bundle", [&] { options.bundleIds.push_back(checkedBundleId(value)); }},
        {"any-bundle", [&] { options.anyBundle = true; }},
        {"max-age-days", [&] { options.maximumAgeDays = number("--" + name, value, 0, longestRetention); }},
        {"max-megabytes",
         [&] { options.maximumMegabytes = number("--" + name, value, 0, largestRetention >> 20); }},
        {"json", [&] { options.json = true; }},
        {"help", [&] { options.command = Command::Help; }},
        {"version", [&] { options.command = Command::Version; }},
    };
    setters.at(name)();
}

void takeBundleId(Options &options, const std::vector<std::string> &words)
{
    if (words.size() != 2)
        throw UsageError('"' + words.front() + "\" needs one BUNDLE_ID");
    options.bundleId = checkedBundleId(words[1]);
}

void takeClientAction(Options &options, const std::vector<std::string> &words)
{
    const std::string action = words.size() > 1 ? words[1] : "";
    const bool hasId = words.size() == 3;
    const bool isRight = action == "list" ? words.size() == 2
        : action == "add"                 ? words.size() <= 3
                          : (action == "bind" || action == "rotate" || action == "revoke") && hasId;
    if (!isRight)
        throw UsageError("\"client\" needs add [ID], list, bind ID, rotate ID or revoke ID");
    if (action == "bind" && options.bundleIds.empty() != options.anyBundle)
        throw UsageError("\"client bind\" needs either --bundle BUNDLE_ID or --any-bundle");
    options.clientAction = action;
    options.clientId = hasId ? words[2] : "";
}

void takeFile(Options &options, const std::vector<std::string> &words)
{
    if (words.size() != 2 || words[1].empty())
        throw UsageError('"' + words.front() + "\" needs one FILE (or - for a pipe)");
    options.file = words[1];
}

void takeNothing(Options &, const std::vector<std::string> &words)
{
    if (words.size() != 1)
        throw UsageError('"' + words.front() + "\" takes no further words");
}

void takePositional(Options &options, const std::vector<std::string> &words)
{
    using Taker = void (*)(Options &, const std::vector<std::string> &);
    static const std::map<std::string, std::pair<Command, Taker>> commands
        = {{"reports", {Command::Reports, takeNothing}},
           {"archive", {Command::Archive, takeBundleId}},
           {"unarchive", {Command::Unarchive, takeBundleId}},
           {"password", {Command::Password, takeNothing}},
           {"client", {Command::Client, takeClientAction}},
           {"export", {Command::Export, takeFile}},
           {"retention", {Command::Retention, takeBundleId}},
           {"import", {Command::Import, takeFile}},
           {"backup", {Command::Backup, takeFile}}};
    if (words.empty())
        return;
    const auto found = commands.find(words.front());
    if (found == commands.end())
        throw UsageError("Unknown command \"" + words.front() + '"');
    options.command = found->second.first;
    found->second.second(options, words);
}

void checkPlace(const StoragePlace &place)
{
    if (place.data.empty() && place.database.empty())
        throw UsageError("--data DIR is missing: the folder that keeps the reports (or --database URL)");
    if (!place.data.empty() && !place.database.empty())
        throw UsageError("--data and --database exclude each other");
    if (!place.files.empty() && place.database.empty())
        throw UsageError("--files needs --database; with --data the files are in that folder");
    if (!place.database.empty())
        connectionOptions(place.database);
}

/// In any spelling. Poco's reader takes "::" for a fault.
bool isAnyAddress(const std::string &host)
{
    in_addr four = {};
    in6_addr six = {};
    if (::inet_aton(host.c_str(), &four) == 1)
        return four.s_addr == INADDR_ANY;
    return ::inet_pton(AF_INET6, host.c_str(), &six) == 1 && IN6_IS_ADDR_UNSPECIFIED(&six);
}

/// The addresses of files go into reports for good, so they must lead somewhere.
void checkFileAddresses(const Options &options)
{
    if (isAnyAddress(options.listenHost) && options.publicUrl.empty())
        throw UsageError(
            "--listen " + options.listenHost
            + " is no address that anybody could ask: give the one that clients reach this receiver "
              "at, as in --public-url https://reports.example.org/");
}

/// Whoever gives an option expects something of it.
void checkUse(const std::vector<std::string> &names, const std::vector<std::string> &words)
{
    static const std::set<std::string> everybodys = {"data", "database", "files"};
    // All others are the server's.
    static const std::map<std::string, std::set<std::string>> users
        = {{"json", {"reports"}},
           {"bundle", {"client add", "client bind"}},
           {"any-bundle", {"client bind"}},
           {"max-age-days", {"retention"}},
           {"max-megabytes", {"retention"}}};
    std::string command = words.empty() ? "the server" : words.front();
    if (command == "client")
        command += ' ' + words.at(1);
    for (const std::string &name : names) {
        const auto found = users.find(name);
        const bool isUsed = found == users.end() ? words.empty() : found->second.contains(command);
        if (!isUsed && !everybodys.contains(name))
            throw UsageError(std::string("--").append(name).append(" does not go with ").append(command));
    }
}

void check(const Options &options)
{
    if (options.command == Command::Help || options.command == Command::Version)
        return;
    checkPlace(options.place);
    if (options.command != Command::Serve)
        return;
    if (options.certificateFile.empty() != options.privateKeyFile.empty())
        throw UsageError("--tls-cert and --tls-key must be given together");
    checkFileAddresses(options);
}

/// Why \a argument names no option.
std::string namingFault(const Poco::Util::OptionSet &set, const std::string &argument)
{
    const std::string given = argument.substr(0, argument.find('='));
    std::string candidates;
    for (const Option &option : set) {
        const std::string name = "--" + option.fullName();
        if (name.starts_with(given))
            candidates += (candidates.empty() ? "" : " or ") + name;
    }
    return candidates.empty() ? "Unknown option " + given : given + " may be " + candidates;
}

/// Gives \a name and \a value, unless that comes with the next argument. False if \a argument is no option.
bool takeOption(Poco::Util::OptionProcessor &processor, const Poco::Util::OptionSet &set,
                const std::string &argument, std::string &name, std::string &value)
{
    try {
        return processor.process(argument, name, value);
    } catch (const Poco::Util::UnknownOptionException &) {
    } catch (const Poco::Util::AmbiguousOptionException &) {
    }
    throw UsageError(namingFault(set, argument));
}

} // namespace

Options parseOptions(const std::vector<std::string> &arguments)
{
    Options options;
    std::vector<std::string> words;
    std::vector<std::string> names;
    const Poco::Util::OptionSet set = optionSet();
    Poco::Util::OptionProcessor processor(set);
    processor.setUnixStyle(true);
    try {
        for (const std::string &argument : arguments) {
            std::string name;
            std::string value;
            if (!takeOption(processor, set, argument, name, value))
                words.push_back(argument);
            else if (!name.empty()) {
                apply(options, name, value);
                names.push_back(name);
            }
        }
        processor.checkRequired();
    } catch (const Poco::Exception &error) {
        throw UsageError(error.displayText());
    }
    if (options.command == Command::Serve) {
        takePositional(options, words);
        checkUse(names, words);
    }
    check(options);
    return options;
}

} // namespace wexel::receiver
