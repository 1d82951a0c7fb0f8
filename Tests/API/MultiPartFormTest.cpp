#include <gtest/gtest.h>

#include "API/Helpers/MultiPartForm.h"

using namespace wexel;

namespace {

TEST(MultiPartForm, PutsParametersBeforeTheFilesWithoutQuoting)
{
    const QByteArray body = MultiPartForm::createBodyWithBoundary(
        QStringLiteral("B"), {{QStringLiteral("key"), QStringLiteral("value")}},
        {{QStringLiteral("a\"b.jpeg"), QByteArray("\0\r\n--B\xFF", 8)}, {QStringLiteral("empty"), {}}},
        QStringLiteral("file"));
    EXPECT_EQ(body,
              QByteArray("--B\r\nContent-Disposition: form-data; name=\"key\"\r\n\r\nvalue\r\n"
                         "--B\r\nContent-Disposition: form-data; name=\"file\"; filename=\"a\"b.jpeg\"\r\n"
                         "Content-Type: image/jpeg\r\n\r\n")
                  + QByteArray("\0\r\n--B\xFF", 8)
                  + "\r\n--B\r\nContent-Disposition: form-data; name=\"file\"; filename=\"empty\"\r\n"
                    "Content-Type: application/octet-stream\r\n\r\n\r\n--B--\r\n");
}

TEST(MultiPartForm, MakesAPostRequestWithABoundaryOfItsOwn)
{
    const auto make = [] {
        return MultiPartForm::requestWithURL(QUrl(QStringLiteral("http://h/files")), "x",
                                             QStringLiteral("s.jpg"));
    };
    const auto request = make();
    EXPECT_EQ(request.method, "POST");
    const QByteArray prefix = "multipart/form-data; boundary=Boundary-";
    const QByteArray type = request.value("content-type").value_or("");
    ASSERT_TRUE(type.startsWith(prefix));
    const QByteArray uuid = type.mid(prefix.size());
    EXPECT_EQ(uuid, uuid.toUpper());
    EXPECT_EQ(uuid.size(), 36);
    EXPECT_TRUE(request.body.startsWith("--Boundary-" + uuid
                                        + "\r\nContent-Disposition: form-data; name=\"file\"; "
                                          "filename=\"s.jpg\"\r\nContent-Type: image/jpeg\r\n"));
    EXPECT_NE(make().value("Content-Type"), request.value("Content-Type"));
}

TEST(MultiPartForm, KnowsTheUsualTypes)
{
    const struct {
        const char *name;
        const char *type;
    } cases[] = {{"a.jpg", "image/jpeg"},
                 {"dir.x/a.JPEG", "image/jpeg"},
                 {"a.png", "image/png"},
                 {"log.txt", "text/plain"},
                 {"a.json", "application/json"},
                 {"a.unknown-extension", "application/octet-stream"},
                 {"Makefile", "application/octet-stream"}};
    for (const auto &[name, type] : cases)
        EXPECT_EQ(MultiPartForm::mimeTypeForPath(QString::fromLatin1(name)), QString::fromLatin1(type))
            << name;
}

} // namespace
