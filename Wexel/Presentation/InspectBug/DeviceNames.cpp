#include "Presentation/InspectBug/DeviceNames.h"

#include <QStringView>

namespace wexel {

namespace {

struct Named {
    const char *identifier;
    QStringView name;
};

constexpr Named devices[] = {
    {"i386", u"Simulator"},
    {"x86_64", u"Simulator"},
    {"iPod1,1", u"iPod Touch"},
    {"iPod2,1", u"iPod Touch"},
    {"iPod3,1", u"iPod Touch"},
    {"iPod4,1", u"iPod Touch"},
    {"iPod7,1", u"iPod Touch"},
    {"iPhone1,1", u"iPhone"},
    {"iPhone1,2", u"iPhone"},
    {"iPhone2,1", u"iPhone"},
    {"iPad1,1", u"iPad"},
    {"iPad3,1", u"iPad"},
    {"iPad3,4", u"iPad"},
    {"iPad2,1", u"iPad 2"},
    {"iPad2,5", u"iPad Mini"},
    {"iPad4,4", u"iPad Mini"},
    {"iPad4,5", u"iPad Mini"},
    {"iPad4,7", u"iPad Mini"},
    {"iPad4,1", u"iPad Air"},
    {"iPad4,2", u"iPad Air"},
    {"iPad6,3", u"iPad Pro (9.7)"},
    {"iPad6,4", u"iPad Pro (9.7)"},
    {"iPad6,7", u"iPad Pro (12.9)"},
    {"iPad6,8", u"iPad Pro (12.9)"},
    {"iPhone3,1", u"iPhone 4"},
    {"iPhone3,3", u"iPhone 4"},
    {"iPhone4,1", u"iPhone 4S"},
    {"iPhone5,1", u"iPhone 5"},
    {"iPhone5,2", u"iPhone 5"},
    {"iPhone5,3", u"iPhone 5c"},
    {"iPhone5,4", u"iPhone 5c"},
    {"iPhone6,1", u"iPhone 5s"},
    {"iPhone6,2", u"iPhone 5s"},
    {"iPhone7,1", u"iPhone 6 Plus"},
    {"iPhone7,2", u"iPhone 6"},
    {"iPhone8,1", u"iPhone 6S"},
    {"iPhone8,2", u"iPhone 6S Plus"},
    {"iPhone8,4", u"iPhone SE"},
    {"iPhone9,1", u"iPhone 7"},
    {"iPhone9,3", u"iPhone 7"},
    {"iPhone9,2", u"iPhone 7 Plus"},
    {"iPhone9,4", u"iPhone 7 Plus"},
    {"iPhone10,1", u"iPhone 8"},
    {"iPhone10,4", u"iPhone 8"},
    {"iPhone10,2", u"iPhone 8 Plus"},
    {"iPhone10,5", u"iPhone 8 Plus"},
    {"iPhone10,3", u"iPhone X"},
    {"iPhone10,6", u"iPhone X"},
    {"iPhone11,2", u"iPhone XS"},
    {"iPhone11,4", u"iPhone XS Max"},
    {"iPhone11,6", u"iPhone XS Max"},
    {"iPhone11,8", u"iPhone XR"},
};

constexpr Named radioTechnologies[] = {
    {"CTRadioAccessTechnologyGPRS", u"2G"},         {"CTRadioAccessTechnologyEdge", u"2G"},
    {"CTRadioAccessTechnologyCDMA1x", u"2G"},       {"CTRadioAccessTechnologyWCDMA", u"3G"},
    {"CTRadioAccessTechnologyHSDPA", u"3G"},        {"CTRadioAccessTechnologyHSUPA", u"3G"},
    {"CTRadioAccessTechnologyCDMAEVDORev0", u"3G"}, {"CTRadioAccessTechnologyCDMAEVDORevA", u"3G"},
    {"CTRadioAccessTechnologyCDMAEVDORevB", u"3G"}, {"CTRadioAccessTechnologyeHRPD", u"3G"},
    {"CTRadioAccessTechnologyLTE", u"4G"},
};

template <size_t size>
std::optional<QString> find(const Named (&table)[size], const QString &identifier)
{
    for (const Named &entry : table) {
        if (identifier == QLatin1String(entry.identifier))
            return entry.name.toString();
    }
    return {};
}

} // namespace

std::optional<QString> deviceName(const QString &identifier)
{
    return find(devices, identifier);
}

QString radioGeneration(const QString &technology)
{
    return find(radioTechnologies, technology).value_or(QString());
}

} // namespace wexel
