#pragma once

#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/IPAddress.h>

#include <string>
#include <vector>

namespace wexel::receiver {

/// The proxies whose word is taken for who sends a request. Every thread may ask once all are added.
class TrustedProxies
{
public:
    /// \a text is an IP address, or a network as in 10.0.0.0/8. False if it is neither.
    bool add(const std::string &text);

    /// \a peer, an address as Poco prints it with its port, unless that is a proxy: then the last address in the
    /// X-Forwarded-For of \a header that is no proxy's, or the first if all are. Whatever is before could have been written by
    /// anybody.
    std::string senderOf(const std::string &peer, const Poco::Net::HTTPRequest &header) const;

private:
    struct Network {
        Poco::Net::IPAddress address;
        unsigned prefix; ///< bits
    };

    bool contain(const Poco::Net::IPAddress &address) const;

    std::vector<Network> m_networks;
};

/// The address in \a text, which may have a port, without its scope; an IPv4 address that is mapped to IPv6 becomes that IPv4
/// address. False if there is none.
bool readAddress(const std::string &text, Poco::Net::IPAddress &address);

} // namespace wexel::receiver
