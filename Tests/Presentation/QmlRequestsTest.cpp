#include <QBuffer>
#include <QImage>

#include <Wexel/WXLNetworkAccessManagerFactory.h>

#include "Business/NetworkRequestRecord.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Platform/SerialQueue.h"
#include "QuickHost.h"
#include "Support/ScriptedServer.h"

using namespace wexel;

namespace {

QByteArray picture()
{
    QBuffer buffer;
    EXPECT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(&buffer, "PNG"));
    return buffer.data();
}

QMap<QString, NetworkRequestRecord> recordedByPath()
{
    const auto &reporter = WXLNetworkRequestReporter::shared();
    for (int turn = 0; turn < 3; ++turn) // made, stored, and stored with the answer
        reporter.timeEventQueue().workingQueue().waitUntilDone();
    QMap<QString, NetworkRequestRecord> result;
    for (const QVariant &stored :
         WXLNetworkRequestReporter::networkRequestHistory(WXLAppRepository::sharedInstance())
             .value_or(QVariantList())) {
        const auto record
            = std::dynamic_pointer_cast<NetworkRequestRecord>(stored.value<std::shared_ptr<SecureCoding>>());
        result.insert(QUrl(*record->url).path(), *record);
    }
    return result;
}

TEST(QmlRequests, AreRecordedThroughTheFactory)
{
    const ScriptedServer server([](const ScriptedServer::Request &request) {
        using Answer = ScriptedServer::Answer;
        return request.path == "/orders"
            ? Answer{.status = 201, .body = "made " + request.body}
            : Answer{.body = picture(), .headers = "Content-Type: image/png\r\n"};
    });
    WXLNetworkAccessManagerFactory networkManagers;
    QuickHost host;
    host.engine.setNetworkAccessManagerFactory(&networkManagers);
    // To the reporter "localhost" is another host than the backend's 127.0.0.1.
    QByteArray document = R"(Window {
        visible: true
        property string answer
        property alias picture: image.status
        Image { id: image; source: "http://localhost:PORT/picture.png" }
        Component.onCompleted: {
            const request = new XMLHttpRequest()
            request.onreadystatechange = () => { if (request.readyState === XMLHttpRequest.DONE) answer = request.responseText }
            request.open("POST", "http://localhost:PORT/orders")
            request.setRequestHeader("X-Table", "7")
            request.send("coffee")
        }
    })";
    host.show(document.replace("PORT", QByteArray::number(server.serverPort())));
    ASSERT_TRUE(waitUntil([&] {
        constexpr int ready = 1;
        return host.window->property("picture").toInt() == ready
            && !host.window->property("answer").toString().isEmpty();
    }));
    EXPECT_EQ(host.window->property("answer").toString(), QStringLiteral("made coffee"));

    const auto records = recordedByPath();
    EXPECT_EQ(records.size(), 2);
    const auto order = records.value(QStringLiteral("/orders"), NetworkRequestRecord({}, {}, {}, {}, {}));
    EXPECT_EQ(order.method, QStringLiteral("POST"));
    EXPECT_EQ(order.requestBody, QStringLiteral("coffee"));
    EXPECT_EQ(order.requestHeaders->value(QStringLiteral("X-Table")), QStringLiteral("7"));
    EXPECT_EQ(order.statusCode, QStringLiteral("201"));
    EXPECT_EQ(order.responseBody, QStringLiteral("made coffee"));
    const auto image
        = records.value(QStringLiteral("/picture.png"), NetworkRequestRecord({}, {}, {}, {}, {}));
    EXPECT_EQ(image.statusCode, QStringLiteral("200"));
    EXPECT_EQ(image.responseBody, QString()) << "no text";
}

} // namespace
