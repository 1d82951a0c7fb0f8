#pragma once

#include "Platform/DeviceFacts.h"

namespace wexel {

/// A machine of which the test decides what can be known.
struct Machine final : DeviceFacts {
    BatteryFact batteryFact;
    ServiceFacts serviceFacts{{}, {}, true};
    bool broken = false;
    ThreadTimes threads;
    std::optional<QString> locale = QStringLiteral("de_AT");

    template <typename T>
    std::optional<T> unlessBroken(T value, Error &error) const
    {
        if (!broken)
            return value;
        error = {QStringLiteral("Machine"), 5, QStringLiteral("out of order")};
        return {};
    }

    static constexpr quint64 mebibyte = 1 << 20;
    QString hardwareModel() const override { return QStringLiteral("x86_64"); }
    QString systemVersion() const override { return QStringLiteral("12"); }
    QString timeZoneName() const override { return QStringLiteral("Europe/Vienna"); }
    std::optional<QString> localeIdentifier() const override { return locale; }
    BatteryFact battery() const override { return batteryFact; }
    std::optional<FileSystemSize> fileSystem(const QString &, Error &error) const override
    {
        return unlessBroken(FileSystemSize{1000 * mebibyte + mebibyte / 2, 300 * mebibyte}, error);
    }
    std::optional<ThreadTimes> threadTimes(Error &error) const override
    {
        return unlessBroken(threads, error);
    }
    std::optional<quint64> residentBytes(Error &error) const override
    {
        return unlessBroken(80 * mebibyte, error);
    }
    std::optional<quint64> physicalBytes() const override { return 2048 * mebibyte; }
    std::optional<quint64> usedBytes(Error &error) const override
    {
        return unlessBroken(1024 * mebibyte, error);
    }
    int deviceOrientation() const override { return 3; }
    int screenWidth() const override { return 1170; }
    int screenHeight() const override { return 2532; }
    ServiceFacts services() const override { return serviceFacts; }
    NetworkIdentity network() const override { return serviceFacts.network; }
};

} // namespace wexel
