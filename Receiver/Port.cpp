#include "Port.h"

#include <Poco/Net/Context.h>
#include <Poco/Net/SSLManager.h>
#include <Poco/Net/SecureServerSocket.h>

#include <openssl/ssl.h>

namespace wexel::receiver {

using Poco::Net::Context;
using Poco::Net::ServerSocket;
using Poco::Net::SocketAddress;

namespace {

constexpr int listenBacklog = 128;

[[noreturn]] void fail(const std::string &address, const Poco::Exception &error)
{
    throw std::runtime_error("Can't listen on " + address + ": " + error.displayText());
}

ServerSocket secureSocket(const Options &options)
{
    Poco::Net::initializeSSL();
    Context::Params parameters;
    parameters.certificateFile = options.certificateFile;
    parameters.privateKeyFile = options.privateKeyFile;
    parameters.verificationMode = Context::VERIFY_NONE; // clients prove themselves by their token
    parameters.cipherList = "ECDHE+AESGCM:ECDHE+CHACHA20"; // of TLS 1.2; those of 1.3 are all good
    try {
        Context::Ptr context = new Context(Context::TLS_SERVER_USE, parameters);
        context->requireMinimumProtocol(Context::PROTO_TLSV1_2);
        // OpenSSL drops a key that does not fit, without a word, and every handshake would fail.
        if (::SSL_CTX_check_private_key(context->sslContext()) != 1)
            throw std::runtime_error("The key in " + options.privateKeyFile
                                     + " does not belong to the certificate in " + options.certificateFile);
        return Poco::Net::SecureServerSocket(context);
    } catch (const Poco::Exception &error) {
        throw std::runtime_error("Can't use the certificate " + options.certificateFile + " with the key "
                                 + options.privateKeyFile + ": " + error.displayText());
    }
}

ServerSocket boundSocket(const Options &options)
{
    ServerSocket socket = options.usesTls() ? secureSocket(options) : ServerSocket();
    try {
        // Not the constructor that binds: it shares the port with whoever listens on it already.
        socket.bind(SocketAddress(options.listenHost, options.listenPort), true, false);
        return socket;
    } catch (const Poco::Exception &error) {
        fail(options.listenHost + " port " + std::to_string(options.listenPort), error);
    }
}

} // namespace

Port::Port(const Options &options)
    : m_socket(boundSocket(options))
    , m_url((options.usesTls() ? "https://" : "http://") + m_socket.address().toString() + '/')
{
}

const ServerSocket &Port::listen()
{
    try {
        m_socket.listen(listenBacklog);
    } catch (const Poco::Exception &error) {
        fail(m_url, error); // another one took it at the same time
    }
    return m_socket;
}

} // namespace wexel::receiver
