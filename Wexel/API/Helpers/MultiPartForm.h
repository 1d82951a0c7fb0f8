#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QUrl>

#include "Platform/UrlSession.h"

namespace wexel::MultiPartForm {

/// A POST request whose body is one file under the field "file" and optional text parameters, as multipart/form-data
/// (RFC 7578) with a boundary of its own. Names and values are inserted without quoting.
[[nodiscard]] UrlRequest requestWithURL(const QUrl &url, const QByteArray &file, const QString &filename,
                                        const QMap<QString, QString> &params = {});

/// \param files file name and content of each file
[[nodiscard]] QByteArray createBodyWithBoundary(const QString &boundary,
                                                const QMap<QString, QString> &parameters,
                                                const QList<QPair<QString, QByteArray>> &files,
                                                const QString &fieldName);

/// By the extension of the path; "application/octet-stream" for an unknown or missing one.
[[nodiscard]] QString mimeTypeForPath(const QString &path);

} // namespace wexel::MultiPartForm
