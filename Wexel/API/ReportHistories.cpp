#include "API/ReportHistories.h"

#include <cmath>

#include "API/WXLAPIReport.h"
#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"
#include "Platform/KeyedArchiver.h"

namespace wexel {

namespace {

using Text = std::optional<QString>;

/// An element under construction; it comes to nothing as soon as one of its fields is absent.
class Element
{
public:
    template <typename Value>
    Element &set(QLatin1String key, const std::optional<Value> &value)
    {
        m_complete = m_complete && value.has_value();
        if (value)
            m_object.insert(key, *value);
        return *this;
    }
    Element &set(QLatin1String key, const std::optional<QVariantMap> &headers)
    {
        QJsonObject object;
        for (const auto &[name, value] : headers.value_or(QVariantMap()).asKeyValueRange()) {
            if (value.typeId() == QMetaType::QString)
                object.insert(name, value.toString());
        }
        return set(key, headers ? std::optional(object) : std::nullopt);
    }
    Element &set(QLatin1String key, const std::optional<double> &number)
    {
        const bool finite = number && std::isfinite(*number); // JSON has no other numbers
        return set(key, finite ? std::optional(QJsonValue(*number)) : std::nullopt);
    }
    void appendTo(QJsonArray &array) const
    {
        if (m_complete)
            array.append(m_object);
    }

private:
    QJsonObject m_object;
    bool m_complete = true;
};

Element element(const Record &record)
{
    return Element()
        .set(QLatin1String("value"), record.value)
        .set(QLatin1String("time_occurred"), record.timestamp);
}

Element element(const Battery &battery)
{
    return Element()
        .set(QLatin1String("status"), battery.status)
        .set(QLatin1String("level"), battery.level)
        .set(QLatin1String("time_occurred"), battery.timestamp);
}

Element element(const Network &network)
{
    return Element()
        .set(QLatin1String("type"), network.type)
        .set(QLatin1String("name"), network.name)
        .set(QLatin1String("time_occurred"), network.timestamp);
}

Element element(const TouchRecord &touch)
{
    return Element()
        .set(QLatin1String("class_name"), touch.className)
        .set(QLatin1String("property"), touch.property)
        .set(QLatin1String("view"), touch.viewController)
        .set(QLatin1String("timestamp"), touch.timestamp);
}

Element element(const NetworkRequestRecord &request)
{
    return Element()
        .set(QLatin1String("method"), request.method)
        .set(QLatin1String("statuc_code"), request.statusCode) // the spelling is the backend's
        .set(QLatin1String("url"), request.url)
        .set(QLatin1String("request_body"), request.requestBody)
        .set(QLatin1String("request_headers"), request.requestHeaders)
        .set(QLatin1String("response_body"), request.responseBody)
        .set(QLatin1String("response_headers"), request.responseHeaders)
        .set(QLatin1String("timestamp"), request.timestamp)
        .set(QLatin1String("duration"), request.duration);
}

Element sessionElement(const Record &record)
{
    return Element()
        .set(QLatin1String("time_occurred"), record.timestamp)
        .set(QLatin1String("state"), record.value);
}

template <typename T>
QJsonArray array(const WXLAPIReport::History &history, Element (*make)(const T &) = element)
{
    QJsonArray result;
    for (const QVariant &entry : history.value_or(QVariantList())) {
        if (const auto record = std::dynamic_pointer_cast<T>(entry.value<ArchivedObject>()))
            make(*record).appendTo(result);
    }
    return result;
}

void insertUnlessEmpty(QJsonObject &object, QLatin1String key, const QJsonArray &array)
{
    if (!array.isEmpty())
        object.insert(key, array);
}

} // namespace

QJsonObject blackBoxObject(const WXLAPIReport &report)
{
    QJsonObject object;
    const auto insert = [&](const char *key, const QJsonArray &array) {
        insertUnlessEmpty(object, QLatin1String(key), array);
    };
    insert("cpu_usage_history", array<Record>(report.cpuHistory));
    insert("application_memory_usage_history", array<Record>(report.memoryUsedByAppHistory));
    insert("memory_usage_history", array<Record>(report.memoryUsedByDeviceHistory));
    insert("disk_space_usage_history", array<Record>(report.storageHistory));
    insert("battery_usage_history", array<Battery>(report.batteryHistory));
    insert("network_usage_history", array<Network>(report.networkHistory));
    insert("device_orientation_history", array<Record>(report.orientationHistory));
    return object;
}

QJsonObject logObject(const WXLAPIReport &report)
{
    QJsonObject object;
    insertUnlessEmpty(object, QLatin1String("user_taps"), array<TouchRecord>(report.userEventsHistory));
    insertUnlessEmpty(object, QLatin1String("network_requests"),
                      array<NetworkRequestRecord>(report.networkRequestHistory));
    return object;
}

QJsonArray sessionsArray(const WXLAPIReport &report)
{
    return array<Record>(report.sessionStateHistory, sessionElement);
}

} // namespace wexel
