#include "Helpers/WXLGlobalCache.h"

namespace wexel {

WXLGlobalCache &WXLGlobalCache::shared()
{
    static auto *instance = new WXLGlobalCache;
    return *instance;
}

} // namespace wexel
