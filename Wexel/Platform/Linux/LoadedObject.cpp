#include "Platform/LoadedObject.h"

#include <QFile>
#include <QFileInfo>
#include <dlfcn.h>
#include <link.h>

namespace wexel {

QString loadedObjectPath()
{
    Dl_info info{};
    link_map *map = nullptr;
    const auto *code = reinterpret_cast<const void *>(&loadedObjectPath);
    const bool isKnown = dladdr1(code, &info, reinterpret_cast<void **>(&map), RTLD_DL_LINKMAP) != 0;
    // The program itself has no name in the link map, and its argv[0] may be anything.
    const bool isProgram = !isKnown || map == nullptr || map->l_name == nullptr || map->l_name[0] == '\0';
    return QFileInfo(isProgram ? QStringLiteral("/proc/self/exe") : QFile::decodeName(map->l_name))
        .canonicalFilePath();
}

} // namespace wexel
