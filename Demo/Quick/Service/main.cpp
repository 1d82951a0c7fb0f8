#include <iostream>

#include <Poco/Net/HTTPServer.h>
#include <Poco/Util/HelpFormatter.h>
#include <Poco/Util/ServerApplication.h>

#include "Handlers.h"

namespace {

using Poco::Util::Option;

class Service : public Poco::Util::ServerApplication
{
protected:
    void defineOptions(Poco::Util::OptionSet &options) override
    {
        ServerApplication::defineOptions(options);
        options.addOption(
            Option("listen", "l", "where to listen; port 0 picks a free one").argument("HOST:PORT"));
        options.addOption(Option("help", "h", "print this"));
    }

    void handleOption(const std::string &name, const std::string &value) override
    {
        ServerApplication::handleOption(name, value);
        if (name == "listen")
            m_listen = value;
        m_help = m_help || name == "help";
    }

    int main(const std::vector<std::string> &) override
    {
        if (m_help) {
            Poco::Util::HelpFormatter(options()).format(std::cout);
            return EXIT_OK;
        }
        const Poco::Net::ServerSocket socket{Poco::Net::SocketAddress(m_listen)};
        Poco::Net::HTTPServer server(new HandlerFactory, socket, new Poco::Net::HTTPServerParams);
        server.start();
        std::cout << "Listening on http://" << socket.address().toString() << "/" << std::endl;
        waitForTerminationRequest();
        server.stopAll(true);
        return EXIT_OK;
    }

private:
    std::string m_listen = "127.0.0.1:8080";
    bool m_help = false;
};

} // namespace

POCO_SERVER_MAIN(Service)
