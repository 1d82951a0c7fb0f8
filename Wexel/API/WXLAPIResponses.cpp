#include "API/WXLAPIResponses.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "Helpers/HexColor.h"
#include "Platform/UrlSession.h"

namespace wexel {

namespace {

constexpr int malformedBrandingCode = 100;

/// Reads "2019-03-07T14:05:09.123+0100" and no other form, though QDateTime knows more.
QDateTime brandingDate(const QString &text)
{
    static const auto &format = *new QRegularExpression( // outlives every thread
        QStringLiteral(R"(\A\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d{4}\z)"));
    return format.match(text).hasMatch() ? QDateTime::fromString(text, Qt::ISODateWithMs) : QDateTime();
}

} // namespace

std::optional<WXLAPIAuthResponse> WXLAPIAuthResponse::initWithData(const QByteArray &data)
{
    const QJsonObject answer = QJsonDocument::fromJson(data).object();
    const QJsonValue token = answer.value(u"access_token");
    const QJsonValue lifetime = answer.value(u"expires_in");
    if (!token.isString() || lifetime.isNull() || lifetime.isUndefined())
        return {};
    return WXLAPIAuthResponse{token.toString(), {}};
}

std::optional<WXLAPIBrandingResponse> WXLAPIBrandingResponse::initWithData(const QByteArray &data,
                                                                           std::optional<Error> &error)
{
    QJsonParseError parseError;
    const auto document = QJsonDocument::fromJson(data, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        error = Error{UrlErrorDomain, malformedBrandingCode, parseError.errorString()};
        return {};
    }
    const QJsonObject answer = document.object();
    for (const auto key : {u"text_color", u"background", u"placeholder_color", u"highlighted_text_color",
                           u"slogan", u"logo_url"}) {
        if (!answer.value(QStringView(key)).isString())
            return {};
    }
    const auto color = [&](QStringView key) { return colorWithHexValue(answer.value(key).toString()); };
    return WXLAPIBrandingResponse{brandingDate(answer.value(u"updated").toString()),
                                  color(u"text_color"),
                                  color(u"background"),
                                  color(u"placeholder_color"),
                                  color(u"highlighted_text_color"),
                                  answer.value(u"slogan").toString(),
                                  QUrl(answer.value(u"logo_url").toString())};
}

} // namespace wexel
