#include "Business/WXLBlackBoxObject.h"

#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"

namespace wexel {

QString WXLBlackBoxObject::className() const
{
    return QStringLiteral("WXLBlackBoxObject");
}

void WXLBlackBoxObject::encodeWithCoder(Coder & /*coder*/) const { }

const ArchivableClass &WXLBlackBoxObject::archivableClass()
{
    static const ArchivableClass description{
        QStringLiteral("WXLBlackBoxObject"),
        [](const Coder &) { return std::make_shared<WXLBlackBoxObject>(); },
        {&Network::archivableClass(), &Battery::archivableClass(), &Record::archivableClass(),
         &TouchRecord::archivableClass(), &NetworkRequestRecord::archivableClass()}};
    return description;
}

} // namespace wexel
