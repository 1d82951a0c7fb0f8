#pragma once

#include "Support/Program.h"

#include <Poco/JSON/Array.h>
#include <Poco/JSON/Object.h>
#include <Poco/Net/HTTPClientSession.h>
#include <Poco/Net/HTTPResponse.h>
#include <Poco/Net/StreamSocket.h>
#include <Poco/URI.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>

/// The bundle id and the credentials that the tests use.
inline const std::string bundleId = "org.example.app";
inline const std::string applicationsPath = "/api/1.0/issue_tracking/apps";
inline const std::string credentials = "grant_type=client_credentials&client_id=id&client_secret=se/cr+et";

struct Reply {
    int status = 0;
    std::string body;
    Poco::Net::HTTPResponse header;

    Poco::JSON::Object::Ptr json() const;
    std::string text(const std::string &key) const;
};

/// A connection that stays open from request to request, as the library's does.
class Client
{
public:
    explicit Client(std::unique_ptr<Poco::Net::HTTPClientSession> session) : m_session(std::move(session)) { }

    std::string token; ///< sent with each request unless empty
    std::map<std::string, std::string> headers; ///< sent with each request

    Reply request(const std::string &method, const std::string &path, const std::string &body = {},
                  const std::string &contentType = "application/json");
    Reply post(const std::string &path, const std::string &body) { return request("POST", path, body); }
    /// Exactly as the library sends it, its joined Content-Type header included.
    Reply upload(const std::string &fileName, const std::string &bytes);
    Reply sendReport(const std::string &json, const std::string &bundle = bundleId);
    /// Signs in with \a body and keeps the token, if there is one.
    Reply authenticate(const std::string &body = credentials);
    /// Signs in to the dashboard and keeps what its requests must carry, if the password is right.
    Reply signIn(const std::string &password);
    /// Goes on in the session that \a reply brings, if it is a good one.
    Reply keepSession(Reply reply);

private:
    std::unique_ptr<Poco::Net::HTTPClientSession> m_session;
};

/// A receiver on a free port with one client, over the data folder or the database given.
class TestReceiver
{
public:
    explicit TestReceiver(const std::filesystem::path &data, std::vector<std::string> options = {},
                          std::vector<std::string> runner = {});
    /// \a place: the options that say where it keeps everything.
    TestReceiver(std::vector<std::string> place, std::vector<std::string> options,
                 std::vector<std::string> runner = {});

    const Poco::URI &url() const { return m_url; }
    /// The dashboard's, if this start was the folder's first.
    const std::string &password() const { return m_password; }
    /// A connection that has signed in.
    Client client() const;
    Client stranger() const;
    /// A connection that has signed in to the dashboard; only after the folder's first start.
    Client administrator() const;
    Poco::Net::StreamSocket connect() const;
    void kill();
    /// Ends it by SIGTERM and returns its exit code.
    int stop();
    Poco::JSON::Array::Ptr reports() const;
    bool setArchived(bool archived) const;

private:
    std::vector<std::string> m_place;
    Program m_program;
    std::string m_password;
    Poco::URI m_url;
};

/// One receiver for each test. At the end it must stop cleanly; under a sanitizer it does not if anything was found.
class ReceiverTest : public testing::Test
{
protected:
    void start(std::vector<std::string> options = {}, std::vector<std::string> runner = {});
    void TearDown() override;

    TemporaryFolder folder;
    std::filesystem::path data = folder.path() / "data";
    std::optional<TestReceiver> receiver;
};

/// What the receiver sends until it closes the connection; nothing if it has not after ten seconds.
std::optional<std::string> readUntilClosed(Poco::Net::StreamSocket &socket);
void send(Poco::Net::StreamSocket &socket, const std::string &text);
