#include "Business/SampleRecords.h"

#include <utility>

namespace wexel {

Network::Network(std::optional<QString> type, std::optional<QString> name, std::optional<QString> timestamp)
    : type(std::move(type))
    , name(std::move(name))
    , timestamp(std::move(timestamp))
{
}

Network::Network(const Coder &coder)
    : Network(coder.decodeString(kNType), coder.decodeString(kNName), coder.decodeString(kNTime))
{
}

QString Network::codingClassName() const
{
    return archivableClass().name;
}

void Network::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(type, kNType);
    coder.encodeObject(name, kNName);
    coder.encodeObject(timestamp, kNTime);
}

const ArchivableClass &Network::archivableClass()
{
    static const auto &description = *new ArchivableClass{QStringLiteral("Network"), [](const Coder &coder) {
                                                              return std::make_shared<Network>(coder);
                                                          }}; // outlives every thread
    return description;
}

Battery::Battery(std::optional<QString> status, std::optional<QString> level,
                 std::optional<QString> timestamp)
    : status(std::move(status))
    , level(std::move(level))
    , timestamp(std::move(timestamp))
{
}

Battery::Battery(const Coder &coder)
    : Battery(coder.decodeString(kBStatus), coder.decodeString(kBLevel), coder.decodeString(kBTime))
{
}

QString Battery::codingClassName() const
{
    return archivableClass().name;
}

void Battery::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(status, kBStatus);
    coder.encodeObject(level, kBLevel);
    coder.encodeObject(timestamp, kBTime);
}

const ArchivableClass &Battery::archivableClass()
{
    static const auto &description = *new ArchivableClass{QStringLiteral("Battery"), [](const Coder &coder) {
                                                              return std::make_shared<Battery>(coder);
                                                          }}; // outlives every thread
    return description;
}

Record::Record(std::optional<QString> value, std::optional<QString> timestamp)
    : value(std::move(value))
    , timestamp(std::move(timestamp))
{
}

Record::Record(const Coder &coder) : Record(coder.decodeString(kRValue), coder.decodeString(kRTime)) { }

QString Record::codingClassName() const
{
    return archivableClass().name;
}

void Record::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(value, kRValue);
    coder.encodeObject(timestamp, kRTime);
}

const ArchivableClass &Record::archivableClass()
{
    static const auto &description = *new ArchivableClass{QStringLiteral("Record"), [](const Coder &coder) {
                                                              return std::make_shared<Record>(coder);
                                                          }}; // outlives every thread
    return description;
}

} // namespace wexel
