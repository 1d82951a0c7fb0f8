#include "Handlers/Dashboard/ReportArchiveHandler.h"

#include "ArchiveNames.h"
#include "Handlers/Dashboard/ReportAddress.h"
#include "Handlers/StoredContent.h"
#include "ZipWriter.h"

#include <sstream>

namespace wexel::receiver {

namespace {

/// What goes into the archive; gathered before the answer begins, so that what is missing then still has an answer.
struct Contents {
    std::string json;
    ReportFiles files;
    std::int64_t received = 0; ///< milliseconds since 1970
};

Contents contentsOf(ReportStore &store, std::int64_t id)
{
    const std::optional<ReportRow> row = store.report(id);
    std::optional<std::string> json = store.reportJson(id);
    if (!row || !json)
        failNoReport();
    return {std::move(*json), store.filesOf(id), row->received};
}

void addFile(ZipWriter &zip, const std::string &name, const StoredFile &file, const FileStore &files,
             std::int64_t time)
{
    const bool isPacked = file.contentType.starts_with("image/");
    FileContent content = openContent(files, file);
    zip.add(name, *content.stream, file.size, time,
            isPacked ? ZipWriter::Packing::Stored : ZipWriter::Packing::Deflated);
}

std::string screenshotName(const StoredFile &screenshot)
{
    const std::string &type = screenshot.contentType;
    return type.starts_with("image/") ? "screenshot." + type.substr(type.find('/') + 1) : "screenshot";
}

void write(const Contents &contents, const FileStore &files, std::ostream &output)
{
    ZipWriter zip(output);
    std::istringstream json(contents.json);
    zip.add("report.json", json, contents.json.size(), contents.received);
    if (contents.files.screenshot)
        addFile(zip, screenshotName(*contents.files.screenshot), *contents.files.screenshot, files,
                contents.received);
    ArchiveNames names;
    for (const StoredFile &file : contents.files.files)
        addFile(zip, "attachments/" + names.take(file.name), file, files, contents.received);
    zip.finish();
}

} // namespace

Answer ReportArchiveHandler::handle(Request &request)
{
    const std::int64_t id = reportIdFrom(request.parameter);
    return {.contentType = "application/zip",
            .writer = [contents = contentsOf(m_store, id),
                       &files = m_files](std::ostream &output) { write(contents, files, output); },
            .headers
            = {{"Content-Disposition", "attachment; filename=\"report-" + std::to_string(id) + ".zip\""}}};
}

} // namespace wexel::receiver
