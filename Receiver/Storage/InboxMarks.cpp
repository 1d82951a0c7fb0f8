#include "Storage/InboxMarks.h"

#include "Storage/Folders.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <set>
#include <unistd.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;

namespace fs = std::filesystem;

namespace {

std::set<std::string> linesOf(const fs::path &file)
{
    std::set<std::string> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
        lines.insert(line);
    return lines;
}

} // namespace

void InboxMarks::add(Database &database)
{
    int known = 0;
    database.read([&](Poco::Data::Session &session) {
        session << "SELECT id FROM inbox", into(m_inbox), now;
        session << "SELECT count(*) FROM (SELECT id FROM files LIMIT 1) AS found", into(known), now;
    });
    // Before the list: another receiver of this inbox adds itself first, and then takes files.
    const bool hadFiles = hasFiles();
    const std::set<std::string> inboxes = linesOf(m_list);
    // A version without the list left files that the database knows.
    if (inboxes.empty() && hadFiles && known == 0)
        append("unknown");
    if (!inboxes.contains(m_inbox))
        append(m_inbox);
}

bool InboxMarks::isAlone() const
{
    return linesOf(m_list) == std::set<std::string>{m_inbox};
}

bool InboxMarks::hasFiles() const
{
    const fs::recursive_directory_iterator entries(m_files);
    return std::any_of(begin(entries), end(entries), [](const fs::directory_entry &entry) {
        return entry.is_regular_file() && entry.path().filename() != "inboxes";
    });
}

void InboxMarks::append(const std::string &line) const
{
    const std::string text = line + '\n';
    const Descriptor list = openOrMakeFile(m_list, O_WRONLY | O_APPEND);
    if (!list.isOpen() || ::write(list.number(), text.data(), text.size()) < 0 || ::fsync(list.number()) != 0)
        failStorage("Can't write " + m_list.string(), errno);
    syncFolder(m_files);
}

} // namespace wexel::receiver
