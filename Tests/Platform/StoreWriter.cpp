// Writes to the store at the path of its argument until it is killed, and says what must have survived.

#include <cstdio>
#include <utility>

#include <unistd.h>

#include <QByteArray>

#include "Platform/UserDefaults.h"

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    std::function<void()> flush;
    const auto defaults
        = wexel::makeUserDefaults(QString::fromLocal8Bit(argv[1]),
                                  [&flush](auto, std::function<void()> block) { flush = std::move(block); });
    for (int i = 1;; ++i) {
        const bool isFlag = i % 7 == 0;
        if (isFlag)
            defaults->setObject(i, QStringLiteral("flag"));
        else
            defaults->setObject(QByteArray::number(i).rightJustified(8000, '0'), QStringLiteral("history"));
        if (!isFlag && i % 3 != 0)
            continue;
        if (flush && !isFlag)
            std::exchange(flush, nullptr)();
        const QByteArray line = (isFlag ? "flag " : "history ") + QByteArray::number(i) + '\n';
        if (write(STDOUT_FILENO, line.constData(), size_t(line.size())) < 0)
            return 1;
    }
}
