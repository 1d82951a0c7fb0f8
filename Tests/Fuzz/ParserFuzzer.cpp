#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "ParserProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    if (const char *broken = wexel::receiver::brokenParserProperty(bytes)) {
        std::fprintf(stderr, "does not hold: %s\n", broken);
        std::abort();
    }
    return 0;
}
