#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "RequestProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    static wexel::receiver::FuzzedReceiver receiver;
    if (const char *broken = receiver.brokenRequestProperty(bytes)) {
        std::fprintf(stderr, "does not hold: %s\n", broken);
        std::abort();
    }
    return 0;
}
