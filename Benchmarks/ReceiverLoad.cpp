// Many clients that send reports with a screenshot each, one after another on a connection of their own, to wexel-receiver
// or, the same bytes, to a server that stores what is put.
//
//   ReceiverLoad wexel|put URL CLIENTS REPORTS BYTES
//
// prints the reports per second, the median and the 99th percentile of the time of a report (its two requests), and how
// many failed. The client benchmark:secret is used.

#include <Poco/JSON/Parser.h>
#include <Poco/Net/HTTPClientSession.h>
#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/HTTPResponse.h>
#include <Poco/StreamCopier.h>
#include <Poco/URI.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <iostream>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Poco::Net::HTTPClientSession;
using Poco::Net::HTTPRequest;
using Poco::Net::HTTPResponse;

struct Load {
    bool isPut;
    Poco::URI url;
    int clients;
    int reports;
    std::size_t bytes;
};

const std::string boundary = "wexel-benchmark-boundary";

/// As a camera's or a screen's picture: nothing that could be compressed.
std::string pictureOf(std::size_t bytes)
{
    std::mt19937 random(1);
    std::string picture = "\xff\xd8\xff";
    while (picture.size() < bytes)
        picture += static_cast<char>(random());
    return picture;
}

/// A minute of samples, as an application with the black box on sends them; no two are the same.
std::string reportText(int number, const std::string &screenshot)
{
    std::string samples;
    for (int i = 0; i < 60; ++i) {
        samples += std::string(i == 0 ? "" : ",") + R"({"time_occurred":"2026-11-21T12:00:)"
            + std::to_string(i) + R"(.000Z","value":")" + std::to_string(i % 17) + "\"}";
    }
    std::string histories;
    for (const char *name : {"cpu_usage_history", "application_memory_usage_history", "memory_usage_history"})
        histories += std::string(histories.empty() ? "" : ",") + '"' + name + "\":[" + samples + ']';
    return R"({"description":"Report number )" + std::to_string(number)
        + R"(","device":"x86_64","app_version":"1.4.0","os":"iOS","platform":"iOS","screenshot_url":")"
        + screenshot + R"(","blackbox":{)" + histories + "}}";
}

/// One of the clients.
class Client
{
public:
    explicit Client(const Load &load) : m_load(load), m_session(load.url.getHost(), load.url.getPort())
    {
        m_session.setKeepAlive(true);
        m_session.setTimeout(Poco::Timespan(120, 0));
        if (!load.isPut)
            m_token = field(send("POST", "auth/oauth2/token", "application/x-www-form-urlencoded",
                                 {"grant_type=client_credentials&client_id=benchmark&client_secret=secret"}),
                            "access_token");
    }

    void report(int number, const std::string &picture)
    {
        if (m_load.isPut) {
            send("PUT", std::to_string(number) + ".jpg", "image/jpeg", {picture});
            send("PUT", std::to_string(number) + ".json", "application/json", {reportText(number, "")});
            return;
        }
        const std::string head = "--" + boundary
            + "\r\nContent-Disposition: form-data; name=\"file\"; filename=\"screenshot.jpg\"\r\n\r\n";
        const std::string address
            = field(send("POST", "api/1.0/files", "multipart/form-data; boundary=" + boundary,
                         {head, picture, "\r\n--" + boundary + "--\r\n"}),
                    "url");
        send("POST", "api/1.0/issue_tracking/apps/org.wexel.benchmark", "application/json",
             {reportText(number, address)});
    }

private:
    std::string send(const std::string &method, const std::string &path, const std::string &type,
                     const std::vector<std::string_view> &body)
    {
        HTTPRequest request(method, m_load.url.getPath() + path, HTTPRequest::HTTP_1_1);
        std::size_t length = 0;
        for (const std::string_view piece : body)
            length += piece.size();
        request.setContentLength64(static_cast<Poco::Int64>(length));
        request.setContentType(type);
        if (!m_token.empty())
            request.set("Authorization", "Bearer " + m_token);
        std::ostream &stream = m_session.sendRequest(request);
        for (const std::string_view piece : body)
            stream.write(piece.data(), static_cast<std::streamsize>(piece.size()));
        HTTPResponse response;
        std::string answer;
        Poco::StreamCopier::copyToString(m_session.receiveResponse(response), answer);
        if (response.getStatus() >= 300)
            throw std::runtime_error(path + ": " + std::to_string(response.getStatus()) + " " + answer);
        return answer;
    }
    static std::string field(const std::string &json, const std::string &name)
    {
        return Poco::JSON::Parser().parse(json).extract<Poco::JSON::Object::Ptr>()->getValue<std::string>(
            name);
    }

    const Load &m_load;
    HTTPClientSession m_session;
    std::string m_token;
};

struct Outcome {
    std::vector<double> milliseconds;
    int failed = 0;
    std::string firstError;
    std::mutex mutex; ///< guards all above
};

void runClient(const Load &load, const std::string &picture, std::atomic<int> &next, Outcome &outcome)
{
    try {
        Client client(load);
        for (int number = next++; number < load.reports; number = next++) {
            const auto began = Clock::now();
            client.report(number, picture);
            const std::chrono::duration<double, std::milli> took = Clock::now() - began;
            const std::lock_guard lock(outcome.mutex);
            outcome.milliseconds.push_back(took.count());
        }
    } catch (const std::exception &error) {
        const std::lock_guard lock(outcome.mutex);
        ++outcome.failed;
        outcome.firstError = outcome.firstError.empty() ? error.what() : outcome.firstError;
    }
}

int run(const Load &load)
{
    const std::string picture = pictureOf(load.bytes);
    std::atomic<int> next = 0;
    Outcome outcome;
    const auto began = Clock::now();
    std::vector<std::thread> threads;
    threads.reserve(static_cast<std::size_t>(load.clients));
    for (int i = 0; i < load.clients; ++i)
        threads.emplace_back([&] { runClient(load, picture, next, outcome); });
    for (std::thread &thread : threads)
        thread.join();
    const std::chrono::duration<double> took = Clock::now() - began;
    auto &times = outcome.milliseconds;
    std::sort(times.begin(), times.end());
    const auto percentile = [&](std::size_t percent) {
        return times.empty() ? 0 : times[std::min(times.size() - 1, times.size() * percent / 100)];
    };
    std::cout << "reports_per_second " << static_cast<double>(times.size()) / took.count() << "\nmedian_ms "
              << percentile(50) << "\np99_ms " << percentile(99) << "\nfailed_clients " << outcome.failed
              << '\n';
    if (outcome.failed > 0)
        std::cerr << outcome.firstError << '\n';
    return outcome.failed == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 6) {
        std::cerr << "ReceiverLoad wexel|put URL CLIENTS REPORTS BYTES\n";
        return 2;
    }
    return run({std::string(argv[1]) == "put", Poco::URI(argv[2]), std::stoi(argv[3]), std::stoi(argv[4]),
                std::stoul(argv[5])});
}
