#include "API/Helpers/MultiPartForm.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QUuid>

namespace wexel::MultiPartForm {

UrlRequest requestWithURL(const QUrl &url, const QByteArray &file, const QString &filename,
                          const QMap<QString, QString> &params)
{
    const QString boundary
        = QStringLiteral("Boundary-") + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    UrlRequest request;
    request.url = url;
    request.method = QByteArrayLiteral("POST");
    request.setValue("multipart/form-data; boundary=" + boundary.toUtf8(), QByteArrayLiteral("Content-Type"));
    request.body = createBodyWithBoundary(boundary, params, {{filename, file}}, QStringLiteral("file"));
    return request;
}

QByteArray createBodyWithBoundary(const QString &boundary, const QMap<QString, QString> &parameters,
                                  const QList<QPair<QString, QByteArray>> &files, const QString &fieldName)
{
    const QByteArray opening = "--" + boundary.toUtf8() + "\r\n";
    const QByteArray disposition = "Content-Disposition: form-data; name=\"";
    QByteArray body;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
        body += opening + disposition + parameter.key().toUtf8() + "\"\r\n\r\n";
        body += parameter.value().toUtf8() + "\r\n";
    }
    for (const auto &[name, content] : files) {
        body += opening + disposition + fieldName.toUtf8() + "\"; filename=\"" + name.toUtf8() + "\"\r\n";
        body += "Content-Type: " + mimeTypeForPath(name).toUtf8() + "\r\n\r\n";
        body += content + "\r\n";
    }
    body += "--" + boundary.toUtf8() + "--\r\n";
    return body;
}

QString mimeTypeForPath(const QString &path)
{
    // By the extension alone: the database also knows names such as "Makefile".
    const QString extension = QFileInfo(path).suffix();
    if (extension.isEmpty())
        return QStringLiteral("application/octet-stream");
    return QMimeDatabase()
        .mimeTypeForFile(QStringLiteral("file.") + extension, QMimeDatabase::MatchExtension)
        .name();
}

} // namespace wexel::MultiPartForm
