#include "Business/TouchRecord.h"

#include <utility>

namespace wexel {

TouchRecord::TouchRecord(std::optional<QString> className, std::optional<QString> viewController,
                         std::optional<QString> property, std::optional<QString> timestamp)
    : className(std::move(className))
    , viewController(std::move(viewController))
    , property(std::move(property))
    , timestamp(std::move(timestamp))
{
}

TouchRecord::TouchRecord(const Coder &coder)
    : TouchRecord(coder.decodeString(kTClassName), coder.decodeString(kTViewController),
                  coder.decodeString(kTProperty), coder.decodeString(kTTime))
{
}

QString TouchRecord::codingClassName() const
{
    return archivableClass().name;
}

void TouchRecord::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(className, kTClassName);
    coder.encodeObject(viewController, kTViewController);
    coder.encodeObject(property, kTProperty);
    coder.encodeObject(timestamp, kTTime);
}

const ArchivableClass &TouchRecord::archivableClass()
{
    static const auto &description
        = *new ArchivableClass{QStringLiteral("TouchRecord"), [](const Coder &coder) {
                                   return std::make_shared<TouchRecord>(coder);
                               }}; // outlives every thread
    return description;
}

} // namespace wexel
