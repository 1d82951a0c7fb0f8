#pragma once

#include "ReportDocument.h"
#include "Secrets.h"
#include "Storage/DataFolder.h"
#include "Support/PostgresServer.h"
#include "Support/TestReceiver.h"

#include <iterator>

/// A test of what is kept, once for each way to keep it.
enum class Keeping { Sqlite, PostgreSql, PostgreSqlWithFolder };

class StorageFixture : public testing::TestWithParam<Keeping>
{
protected:
    using DataFolder = wexel::receiver::DataFolder;
    using StoredFile = wexel::receiver::StoredFile;

    wexel::receiver::StoragePlace newPlace()
    {
        const auto name = folder.path() / ("place" + std::to_string(++m_places));
        if (GetParam() == Keeping::Sqlite)
            return {name};
        return {{},
                PostgresServer::instance().newDatabase(),
                GetParam() == Keeping::PostgreSqlWithFolder ? name : std::filesystem::path()};
    }

    static std::vector<std::string> optionsOf(const wexel::receiver::StoragePlace &place)
    {
        if (place.database.empty())
            return {"--data", place.data};
        std::vector<std::string> options = {"--database", place.database};
        if (!place.files.empty())
            options.insert(options.end(), {"--files", place.files});
        return options;
    }

    /// An upload of \a bytes that arrived \a age milliseconds ago.
    static StoredFile addFile(DataFolder &storage, const std::string &bytes, std::int64_t age = 0)
    {
        const std::string id = wexel::receiver::randomId();
        const auto incoming = storage.files().receive(id);
        incoming->write(bytes);
        const std::string sha256 = incoming->publish();
        StoredFile file
            = {id, sha256, "name", "type", bytes.size(), wexel::receiver::currentMilliseconds() - age, id};
        storage.reports().addFile(file);
        return file;
    }

    static wexel::receiver::AddedReport addReport(DataFolder &storage, const std::string &json,
                                                  const std::string &bundle = bundleId,
                                                  std::int64_t received = 0)
    {
        return storage.reports().addReport(wexel::receiver::newReport(bundle, json, received)).value();
    }

    static std::string addressOf(const StoredFile &file) { return "http://x/api/1.0/files/" + file.id; }

    /// Nothing if they are lost.
    static std::optional<std::string> bytesOf(DataFolder &storage, const StoredFile &file)
    {
        const auto stream = storage.files().open(file.location, file.size);
        if (!stream)
            return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(*stream), {});
    }

    TemporaryFolder folder;
    int m_places = 0;
    wexel::receiver::StoragePlace place = newPlace();
};

inline std::string nameOf(const testing::TestParamInfo<Keeping> &info)
{
    const char *names[] = {"Sqlite", "PostgreSql", "PostgreSqlWithFolder"};
    return names[static_cast<int>(info.param)];
}
