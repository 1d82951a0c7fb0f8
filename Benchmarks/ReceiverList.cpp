// How long the dashboard waits for its list with many reports: fills a new receiver and asks it over HTTP.
//
//   ReceiverList [REPORTS [DATABASE]]     100000 reports in a temporary folder, or in an empty PostgreSQL database;
//                                         0 asks a database that was filled before

#include "Access/SessionStore.h"
#include "Secrets.h"
#include "Server.h"
#include "Storage/ReportListing.h"

#include <Poco/Crypto/OpenSSLInitializer.h>
#include <Poco/Data/Session.h>
#include <Poco/Net/HTTPClientSession.h>
#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/HTTPResponse.h>
#include <Poco/StreamCopier.h>
#include <Poco/TemporaryFile.h>
#include <Poco/URI.h>

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>

using namespace wexel::receiver;
using namespace Poco::Data::Keywords;

namespace {

constexpr int applications = 20;
constexpr int rounds = 15;

ReportFacts factsOf(int number)
{
    const std::string text = "The list of number " + std::to_string(number)
        + " jumps to its top when I come back from a detail, and what I had typed is gone.\nIt began with "
          "the last version.";
    return {.description = text,
            .tester = "tester" + std::to_string(number % 300) + "@example.org",
            .device = "Device " + std::to_string(number % 40),
            .os = "iOS",
            .osVersion = "17." + std::to_string(number % 6),
            .appVersion = "3." + std::to_string(number % 25)};
}

/// The rows alone: the list reads no bytes.
void addFile(Poco::Data::Session &session, std::int64_t report, int position, const std::string &name,
             int size)
{
    const std::string id = randomId();
    session << "INSERT INTO files (id, sha256, name, content_type, size, received, location) "
               "VALUES ($1, $2, $3, '', $4, $5, $6)",
        bind(id), bind(sha256(id)), bind(name), bind(size), bind(currentMilliseconds()), bind(id), now;
    session << "INSERT INTO report_files (report_id, position, file_id) VALUES ($1, $2, $3)", bind(report),
        bind(position), bind(id), now;
}

void addReport(Poco::Data::Session &session, int number)
{
    const std::string bundleId = "org.example.app" + std::to_string(number % applications);
    const std::string json = "{\"log\":\"" + std::string(2000, 'x') + std::to_string(number) + "\"}";
    std::int64_t id = 0;
    session << "INSERT INTO reports (received, bundle_id) VALUES ($1, $2) RETURNING id",
        bind(currentMilliseconds() - std::int64_t(1000) * number), bind(bundleId), into(id), now;
    session << "INSERT INTO report_documents (report_id, json) VALUES ($1, $2)", bind(id), bind(json), now;
    addFile(session, id, 0, "screenshot.png", 300000 + number);
    addFile(session, id, 1, "attachment.log", 20000 + number);
    describe(session, id, bundleId, factsOf(number), json.size());
}

void fill(DataFolder &data, int reports)
{
    for (int i = 0; i < applications; ++i)
        data.reports().registerApplication({"org.example.app" + std::to_string(i), "iOS", "iOS"});
    constexpr int atOnce = 5000;
    for (int i = 0; i < reports; i += atOnce) {
        data.database().write([&](Poco::Data::Session &session) {
            for (int number = i; number < std::min(reports, i + atOnce); ++number)
                addReport(session, number);
        });
    }
}

/// Milliseconds until the whole answer is there.
double timeOf(Poco::Net::HTTPClientSession &client, const std::string &cookie, const std::string &path)
{
    Poco::Net::HTTPRequest request("GET", path, "HTTP/1.1");
    request.set("Cookie", "wexel_session=" + cookie);
    const auto start = std::chrono::steady_clock::now();
    client.sendRequest(request);
    Poco::Net::HTTPResponse response;
    std::string body;
    Poco::StreamCopier::copyToString(client.receiveResponse(response), body);
    if (response.getStatus() != 200)
        throw std::runtime_error(path + ": " + body);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void measure(const std::string &url, const std::string &cookie)
{
    const Poco::URI address(url);
    Poco::Net::HTTPClientSession client(address.getHost(), address.getPort());
    client.setKeepAlive(true);
    std::cout << std::fixed << std::setprecision(1) << "  median      most\n";
    for (const std::string path :
         {"reports", "reports?page=1500", "reports?bundle_id=org.example.app7", "reports?sort=tester",
          "reports?sort=-app_version&size=200", "reports?device=Device%203&version=3.3",
          "reports?search=number%2099", "reports?search=the%20list", "reports?search=nowhere", "applications",
          "filters", "filters?bundle_id=org.example.app7"}) {
        std::vector<double> times;
        times.reserve(rounds);
        for (int i = 0; i < rounds; ++i)
            times.push_back(timeOf(client, cookie, "/dashboard/api/" + path));
        std::sort(times.begin(), times.end());
        std::cout << std::setw(8) << times[rounds / 2] << std::setw(10) << times.back() << " ms  " << path
                  << '\n';
    }
}

} // namespace

int main(int argc, char **argv)
{
    const Poco::Crypto::OpenSSLInitializer openSsl;
    const std::vector<std::string> words(argv + 1, argv + argc);
    const int reports = words.empty() ? 100000 : std::stoi(words[0]);
    Options options;
    options.listenPort = 0;
    if (words.size() > 1)
        options.place.database = words[1];
    else
        options.place.data = Poco::TemporaryFile::tempName();
    {
        DataFolder data(options.place, DataFolder::Access::Serve);
        fill(data, reports);
        Server server(options, data, Port(options));
        std::cout << data.reports().page({}).total << " reports, answers over HTTP:\n";
        measure(server.url(), SessionStore(data.database()).start(currentMilliseconds()));
        server.stop();
    }
    if (!options.place.data.empty())
        std::filesystem::remove_all(options.place.data);
}
