#include "Business/WXLBlackBoxObject.h"

#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"

namespace wexel {

QString WXLBlackBoxObject::codingClassName() const
{
    return QStringLiteral("WXLBlackBoxObject");
}

void WXLBlackBoxObject::encodeWithCoder(Coder & /*coder*/) const { }

const ArchivableClass &WXLBlackBoxObject::archivableClass()
{
    static const auto &description = *new ArchivableClass{
        QStringLiteral("WXLBlackBoxObject"),
        [](const Coder &) { return std::make_shared<WXLBlackBoxObject>(); },
        {&Network::archivableClass(), &Battery::archivableClass(), &Record::archivableClass(),
         &TouchRecord::archivableClass(), &NetworkRequestRecord::archivableClass()}}; // outlives every thread
    return description;
}

} // namespace wexel
