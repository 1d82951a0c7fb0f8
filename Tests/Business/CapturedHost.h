#pragma once

#include <gtest/gtest.h>

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTemporaryDir>

#include "Business/NetworkRequestRecord.h"
#include "Business/RequestCapture.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Platform/SerialQueue.h"
#include "Support/ScriptedServer.h"
#include "Support/Wait.h"

/// A reporter over a store of its own.
struct ReporterUnderTest {
    QTemporaryDir folder;
    wexel::WXLAppRepository repository{
        wexel::makeUserDefaults(folder.filePath(QStringLiteral("defaults")), [](auto, auto) {})};
    wexel::WXLNetworkRequestReporter reporter{repository, wexel::WXLDateProvider::sharedInstance(),
                                              QStringLiteral("https://backend.example/")};

    ~ReporterUnderTest() { settle(); }
    /// Waits for what was reported, which takes two turns of the queue and a third to be stored.
    void settle() const
    {
        for (int turn = 0; turn < 3; ++turn)
            reporter.timeEventQueue().workingQueue().waitUntilDone();
    }
    /// The stored copy.
    [[nodiscard]] std::vector<wexel::NetworkRequestRecord> records() const
    {
        settle();
        std::vector<wexel::NetworkRequestRecord> result;
        for (const QVariant &stored :
             wexel::WXLNetworkRequestReporter::networkRequestHistory(repository).value_or(QVariantList()))
            result.push_back(dynamic_cast<wexel::NetworkRequestRecord &>(
                *stored.value<std::shared_ptr<wexel::SecureCoding>>()));
        return result;
    }
    [[nodiscard]] wexel::NetworkRequestRecord last() const
    {
        const auto all = records();
        return all.empty() ? wexel::NetworkRequestRecord({}, {}, {}, {}, {}) : all.back();
    }
};

/// The manager of a host that records into a reporter of its own.
struct RecordingManager final : QNetworkAccessManager {
    explicit RecordingManager(wexel::WXLNetworkRequestReporter &reporter) : reporter(reporter) { }
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *body) override
    {
        return wexel::captured(reporter, operation, request, body, [&](QIODevice *passed) {
            return QNetworkAccessManager::createRequest(operation, request, passed);
        });
    }
    wexel::WXLNetworkRequestReporter &reporter;
};
