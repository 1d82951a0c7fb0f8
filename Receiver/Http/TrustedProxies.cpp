#include "Http/TrustedProxies.h"

#include "Text.h"

#include <Poco/NumberParser.h>
#include <Poco/String.h>

#include <algorithm>

namespace wexel::receiver {

using Poco::Net::IPAddress;

namespace {

constexpr unsigned bitsInByte = 8;

/// Without the scope, which Poco can't mask, and as IPv4 where it is a mapped one.
IPAddress plain(const IPAddress &address)
{
    const auto *bytes = static_cast<const char *>(address.addr());
    constexpr poco_socklen_t sizeOfIPv4 = 4;
    const bool isMapped = address.family() == IPAddress::IPv6 && address.isIPv4Mapped();
    const poco_socklen_t size = isMapped ? sizeOfIPv4 : address.length();
    return {bytes + (address.length() - size), size};
}

/// Poco's reader of addresses with ports would ask the DNS for names.
std::string withoutPort(const std::string &text)
{
    if (text.starts_with('['))
        return text.substr(1, text.find(']') - 1);
    const std::size_t colon = text.find(':');
    return colon == text.rfind(':') ? text.substr(0, colon) : text; // more of them: IPv6
}

/// All that was forwarded through, the latest last.
std::vector<std::string> forwardedFor(const Poco::Net::HTTPRequest &header)
{
    const std::string name = "X-Forwarded-For";
    std::vector<std::string> addresses;
    for (auto field = header.find(name); field != header.end() && Poco::icompare(field->first, name) == 0;
         ++field) {
        for (const std::string_view address : split(field->second, ','))
            addresses.push_back(Poco::trim(std::string(address)));
    }
    return addresses;
}

} // namespace

bool readAddress(const std::string &text, IPAddress &address)
{
    if (!IPAddress::tryParse(withoutPort(text), address))
        return false;
    address = plain(address);
    return true;
}

bool TrustedProxies::add(const std::string &text)
{
    const std::size_t slash = std::min(text.find('/'), text.size());
    IPAddress address;
    if (!IPAddress::tryParse(text.substr(0, slash), address))
        return false;
    address = plain(address);
    unsigned prefix = address.length() * bitsInByte;
    if (slash < text.size()
        && (!Poco::NumberParser::tryParseUnsigned(text.substr(slash + 1), prefix)
            || prefix > address.length() * bitsInByte))
        return false;
    m_networks.push_back({address, prefix});
    return true;
}

bool TrustedProxies::contain(const IPAddress &address) const
{
    return std::any_of(m_networks.begin(), m_networks.end(), [&](const Network &network) {
        const auto family = network.address.family();
        const IPAddress mask(network.prefix, family);
        return family == address.family() && (address & mask) == (network.address & mask);
    });
}

std::string TrustedProxies::senderOf(const std::string &peer, const Poco::Net::HTTPRequest &header) const
{
    IPAddress address;
    if (m_networks.empty() || !readAddress(peer, address) || !contain(address))
        return peer;
    const std::vector<std::string> addresses = forwardedFor(header);
    std::string sender = peer;
    for (auto text = addresses.rbegin(); text != addresses.rend() && contain(address); ++text) {
        if (!readAddress(*text, address))
            break;
        sender = address.toString();
    }
    return sender;
}

} // namespace wexel::receiver
