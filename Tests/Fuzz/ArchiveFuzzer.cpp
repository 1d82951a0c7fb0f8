#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "ArchiveProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const char *broken = wexel::brokenArchiveProperty(bytes)) {
        std::fprintf(stderr, "does not hold: %s\n", broken);
        std::abort();
    }
    return 0;
}
