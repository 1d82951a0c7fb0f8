#include "Platform/KeyPath.h"

#include <algorithm>

namespace wexel {

namespace {
constexpr qsizetype longestExcerpt = 40;
constexpr qsizetype mostSteps = 6;
} // namespace

QString excerpt(const QString &text)
{
    QString result = text.left(longestExcerpt);
    const auto unprintable = [](QChar c) { return !c.isPrint() || c.isSurrogate(); };
    std::replace_if(result.begin(), result.end(), unprintable, QLatin1Char('?'));
    return text.size() > longestExcerpt ? result + QStringLiteral("...") : result;
}

QString KeyPath::text() const
{
    if (m_steps.empty())
        return QStringLiteral("the root");
    QString result;
    for (qsizetype i = std::max<qsizetype>(0, depth() - mostSteps); i < depth(); ++i) {
        const auto &step = m_steps[static_cast<size_t>(i)];
        if (const auto *index = std::get_if<qsizetype>(&step))
            result += QStringLiteral("[%1]").arg(*index);
        else
            result += (result.isEmpty() ? QString() : QStringLiteral(".")) + excerpt(std::get<QString>(step));
    }
    return depth() > mostSteps ? QStringLiteral("...") + result : result;
}

} // namespace wexel
