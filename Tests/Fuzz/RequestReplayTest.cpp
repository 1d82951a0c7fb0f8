#include "ParserProperties.h"
#include "RequestProperties.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

using namespace wexel::receiver;

namespace {

/// Checks every file of the folders and ways to cut it short; returns how many files there were.
int replay(const std::string &name, std::size_t cuts,
           const std::function<const char *(std::string_view)> &check)
{
    int files = 0;
    for (const std::string folder : {"/corpus/", "/crashers/"}) {
        if (!std::filesystem::exists(FUZZ_FOLDER + folder + name))
            continue;
        for (const auto &entry : std::filesystem::directory_iterator(FUZZ_FOLDER + folder + name)) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            const std::size_t step = 1 + bytes.size() / cuts;
            for (std::size_t cut = 0; cut < bytes.size(); cut += step)
                EXPECT_STREQ(check(std::string_view(bytes).substr(0, bytes.size() - cut)), nullptr)
                    << entry.path() << " short of " << cut;
            ++files;
        }
    }
    return files;
}

TEST(RequestReplay, ParsersHoldTheirProperties)
{
    EXPECT_GT(replay("parser", 1000, brokenParserProperty), 0);
}

TEST(RequestReplay, TheReceiverHoldsItsProperties)
{
    FuzzedReceiver receiver;
    const auto check = [&](std::string_view bytes) { return receiver.brokenRequestProperty(bytes); };
    EXPECT_GT(replay("request", 12, check), 0);
}

} // namespace
