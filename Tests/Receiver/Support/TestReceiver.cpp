#include "Support/TestReceiver.h"

#include <Poco/JSON/Parser.h>
#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/NetException.h>
#include <Poco/StreamCopier.h>

#include <csignal>

using Poco::Net::HTTPClientSession;

namespace {

const Poco::Timespan patience(10, 0);

std::vector<std::string> commandLine(const std::vector<std::string> &place, std::vector<std::string> options,
                                     std::vector<std::string> command)
{
    command.emplace_back(WEXEL_RECEIVER);
    command.insert(command.end(), place.begin(), place.end());
    command.insert(command.end(), {"--client", "id:se/cr+et"});
    const bool hasAddress = std::find(options.begin(), options.end(), "--listen") != options.end();
    if (!hasAddress)
        command.insert(command.end(), {"--listen", "127.0.0.1:0"});
    command.insert(command.end(), options.begin(), options.end());
    return command;
}

} // namespace

Poco::JSON::Object::Ptr Reply::json() const
{
    try {
        return Poco::JSON::Parser().parse(body).extract<Poco::JSON::Object::Ptr>();
    } catch (const Poco::Exception &) {
        ADD_FAILURE() << "Not a JSON object: " << status << ' ' << body;
        return new Poco::JSON::Object;
    }
}

std::string Reply::text(const std::string &key) const
{
    return json()->optValue<std::string>(key, "");
}

Reply Client::request(const std::string &method, const std::string &path, const std::string &body,
                      const std::string &contentType)
{
    Poco::Net::HTTPRequest request(method, path, "HTTP/1.1");
    request.setContentType(contentType);
    request.setContentLength64(static_cast<Poco::Int64>(body.size()));
    if (!token.empty())
        request.set("Authorization", "Bearer " + token);
    for (const auto &[name, value] : headers)
        request.set(name, value);
    m_session->sendRequest(request) << body;
    Reply reply;
    Poco::StreamCopier::copyToString(m_session->receiveResponse(reply.header), reply.body);
    reply.status = reply.header.getStatus();
    return reply;
}

Reply Client::upload(const std::string &fileName, const std::string &bytes)
{
    const std::string boundary = "Boundary-6F9619FF-8B86-D011-B42D-00C04FC964FF";
    const std::string body = "--" + boundary
        + "\r\nContent-Disposition: form-data; name=\"file\"; filename=\"" + fileName
        + "\"\r\nContent-Type: application/octet-stream\r\n\r\n" + bytes + "\r\n--" + boundary + "--\r\n";
    return request("POST", "/api/1.0/files", body,
                   "multipart/form-data; boundary=" + boundary + ",application/json");
}

Reply Client::sendReport(const std::string &json, const std::string &bundle)
{
    return post(applicationsPath + "/" + bundle, json);
}

Reply Client::authenticate(const std::string &body)
{
    Reply reply = request("POST", "/auth/oauth2/token", body, "application/x-www-form-urlencoded");
    token = reply.text("access_token");
    return reply;
}

Reply Client::signIn(const std::string &password)
{
    return keepSession(post("/dashboard/api/session", R"({"password":")" + password + "\"}"));
}

Reply Client::keepSession(Reply reply)
{
    const std::string cookie = reply.header.get("Set-Cookie", "");
    if (reply.status == 200 && !cookie.empty())
        headers = {{"Cookie", cookie.substr(0, cookie.find(';'))}, {"X-CSRF-Token", reply.text("csrf")}};
    return reply;
}

TestReceiver::TestReceiver(const std::filesystem::path &data, std::vector<std::string> options,
                           std::vector<std::string> runner)
    : TestReceiver(std::vector<std::string>{"--data", data.string()}, std::move(options), std::move(runner))
{
}

TestReceiver::TestReceiver(std::vector<std::string> place, std::vector<std::string> options,
                           std::vector<std::string> runner)
    : m_place(std::move(place))
    , m_program(commandLine(m_place, std::move(options), std::move(runner)))
{
    std::string line = m_program.readLine();
    const std::string first = "Dashboard password: ";
    if (line.starts_with(first)) {
        m_password = line.substr(first.size());
        line = m_program.readLine();
    }
    const std::string announcement = "Listening on ";
    if (!line.starts_with(announcement))
        throw std::runtime_error("The receiver did not start: " + line);
    m_url = line.substr(announcement.size());
}

Client TestReceiver::client() const
{
    Client client = stranger();
    client.authenticate();
    return client;
}

Client TestReceiver::stranger() const
{
    auto session = std::make_unique<HTTPClientSession>(m_url.getHost(), m_url.getPort());
    session->setKeepAlive(true);
    session->setTimeout(Poco::Timespan(30, 0));
    return Client(std::move(session));
}

Client TestReceiver::administrator() const
{
    Client client = stranger();
    EXPECT_EQ(client.signIn(m_password).status, 200);
    return client;
}

Poco::Net::StreamSocket TestReceiver::connect() const
{
    Poco::Net::StreamSocket socket(Poco::Net::SocketAddress(m_url.getHost(), m_url.getPort()));
    socket.setReceiveTimeout(patience);
    return socket;
}

void TestReceiver::kill()
{
    m_program.signal(SIGKILL);
    m_program.wait();
}

int TestReceiver::stop()
{
    m_program.signal(SIGTERM);
    return m_program.wait();
}

Poco::JSON::Array::Ptr TestReceiver::reports() const
{
    std::vector<std::string> command = {WEXEL_RECEIVER, "reports", "--json"};
    command.insert(command.end(), m_place.begin(), m_place.end());
    Program program(command);
    return Poco::JSON::Parser().parse(program.readAll()).extract<Poco::JSON::Array::Ptr>();
}

bool TestReceiver::setArchived(bool archived) const
{
    std::vector<std::string> command = {archived ? "archive" : "unarchive", bundleId};
    command.insert(command.end(), m_place.begin(), m_place.end());
    return runReceiver(command).code == 0;
}

void ReceiverTest::start(std::vector<std::string> options, std::vector<std::string> runner)
{
    receiver.emplace(data, std::move(options), std::move(runner));
}

void ReceiverTest::TearDown()
{
    if (receiver) {
        EXPECT_EQ(receiver->stop(), 0);
    }
}

std::optional<std::string> readUntilClosed(Poco::Net::StreamSocket &socket)
{
    std::string text;
    char block[4096];
    try {
        for (int count = 0; (count = socket.receiveBytes(block, sizeof block)) > 0;)
            text.append(block, static_cast<std::size_t>(count));
    } catch (const Poco::TimeoutException &) {
        return std::nullopt;
    } catch (const Poco::Exception &) { // A reset is an end too.
    }
    return text;
}

void send(Poco::Net::StreamSocket &socket, const std::string &text)
{
    for (std::size_t sent = 0; sent < text.size();)
        sent += static_cast<std::size_t>(
            socket.sendBytes(text.data() + sent, static_cast<int>(text.size() - sent)));
}
