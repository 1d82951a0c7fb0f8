#include "Support/TestReceiver.h"

#include <Poco/Net/Context.h>
#include <Poco/Net/HTTPSClientSession.h>
#include <Poco/Net/RejectCertificateHandler.h>
#include <Poco/Net/SSLManager.h>
#include <Poco/Net/SecureStreamSocket.h>

#include <gmock/gmock.h>

namespace {

using Poco::Net::Context;

class TlsTest : public ReceiverTest
{
protected:
    static void makeCertificate(const std::string &certificate, const std::string &key)
    {
        Program openssl({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256",
                         "-nodes", "-days", "2", "-subj", "/CN=localhost", "-addext",
                         "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out", certificate},
                        Program::Output::Both);
        const std::string output = openssl.readAll();
        ASSERT_EQ(openssl.wait(), 0) << output;
    }

    void startSecure(std::vector<std::string> options = {})
    {
        makeCertificate(certificate, key);
        options.insert(options.end(), {"--tls-cert", certificate, "--tls-key", key});
        start(std::move(options), {"/bin/sh", "-c", "exec \"$0\" \"$@\" 2>" + log.string()});
        context = new Context(Context::TLS_CLIENT_USE, certificate, Context::VERIFY_STRICT);
        Poco::Net::SSLManager::instance().initializeClient(
            nullptr, new Poco::Net::RejectCertificateHandler(false), context);
    }

    Poco::Net::SecureStreamSocket connectSecurely() const
    {
        const Poco::Net::SocketAddress address(receiver->url().getHost(), receiver->url().getPort());
        Poco::Net::SecureStreamSocket socket(address, context);
        socket.setReceiveTimeout(Poco::Timespan(10, 0));
        return socket;
    }

    std::string certificate = (folder.path() / "cert.pem").string();
    std::string key = (folder.path() / "key.pem").string();
    std::filesystem::path log = folder.path() / "log";
    Context::Ptr context;
};

TEST_F(TlsTest, ServesOverTls)
{
    startSecure();
    EXPECT_EQ(receiver->url().getScheme(), "https");
    Client client(std::make_unique<Poco::Net::HTTPSClientSession>(receiver->url().getHost(),
                                                                  receiver->url().getPort(), context));
    EXPECT_EQ(client.authenticate().status, 200);
    const std::string bytes(1000000, 'b');
    const std::string url = client.upload("a", bytes).text("url");
    EXPECT_TRUE(url.starts_with("https://"));
    EXPECT_EQ(client.request("GET", Poco::URI(url).getPath()).body, bytes);
    EXPECT_EQ(client.sendReport("{}").status, 200);
    const Reply signedIn = client.signIn(receiver->password());
    EXPECT_TRUE(signedIn.header.get("Set-Cookie", "").starts_with("__Host-wexel_session="));
    EXPECT_TRUE(signedIn.header.get("Set-Cookie", "").find("; Secure") != std::string::npos);
    EXPECT_TRUE(signedIn.header.has("Strict-Transport-Security"));
    EXPECT_EQ(client.request("GET", "/dashboard/api/session").status, 200);
    // Whoever speaks plain HTTP, or leaves in the middle of the handshake, disturbs nobody.
    auto plain = receiver->connect();
    send(plain, "GET / HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(readUntilClosed(plain).has_value());
    EXPECT_EQ(client.sendReport("{}").status, 200);
    EXPECT_THAT(readFile(log),
                testing::ContainsRegex("event=tls_failed peer=[^ ]+ error=[^\n]*http request"));
}

TEST_F(TlsTest, CutsOffSlowPeers)
{
    startSecure({"--request-timeout", "1"});
    auto silent = receiver->connect();
    send(silent, "\x16"); // The first byte of a handshake, and no more.
    EXPECT_TRUE(readUntilClosed(silent).has_value());
    EXPECT_THAT(readFile(log),
                testing::ContainsRegex("event=tls_failed peer=[^ ]+ error=\"It took too long\""));
    auto slow = connectSecurely();
    send(slow, "POST /auth/oauth2/token HTTP/1.1\r\nContent-Length: 9999\r\n\r\nx");
    EXPECT_TRUE(readUntilClosed(slow).has_value());
}

TEST_F(TlsTest, ExplainsABadCertificate)
{
    const auto complaint = [&](const std::string &usedKey) {
        const Result result = runReceiver({"--data", data.string(), "--listen", "127.0.0.1:0", "--tls-cert",
                                           certificate, "--tls-key", usedKey});
        EXPECT_EQ(result.code, 1);
        return result.output;
    };
    writeFile(certificate, "no certificate");
    EXPECT_THAT(complaint(certificate), testing::HasSubstr(certificate));
    makeCertificate(certificate, key);
    const std::string otherKey = key + "2";
    makeCertificate(certificate + "2", otherKey);
    EXPECT_THAT(complaint(otherKey),
                testing::HasSubstr("The key in " + otherKey + " does not belong to the certificate in "
                                   + certificate + '\n'));
}

} // namespace
