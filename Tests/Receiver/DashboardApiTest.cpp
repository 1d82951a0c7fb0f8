#include "Support/Pictures.h"
#include "Support/TestReceiver.h"

#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>

#include <clocale>
#include <map>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using namespace std::string_literals;
using testing::IsEmpty;

const std::string api = "/dashboard/api/";

class DashboardApiTest : public ReceiverTest
{
protected:
    void SetUp() override
    {
        start();
        client.emplace(receiver->client());
        admin.emplace(receiver->administrator());
    }

    Reply get(const std::string &path) { return admin->request("GET", api + path); }

    /// Uploads the files, the screenshot first (unless it is empty), and sends a report of them. Returns its id.
    std::string report(std::string facts, const std::string &screenshot = {},
                       const std::map<std::string, std::string> &files = {},
                       const std::string &bundle = bundleId)
    {
        std::string addresses;
        for (const auto &[name, bytes] : files)
            addresses += (addresses.empty() ? "{\"url\":\"" : ",{\"url\":\"") + upload(name, bytes) + "\"}";
        facts += (facts.empty() ? "" : ",") + std::string("\"files\":[") + addresses + "]";
        if (!screenshot.empty())
            facts += ",\"screenshot_url\":\"" + upload("screenshot.jpg", screenshot) + "\"";
        const Reply reply = client->sendReport("{" + facts + "}", bundle);
        EXPECT_EQ(reply.status, 200) << reply.body;
        return reply.text("id");
    }

    std::string upload(const std::string &name, const std::string &bytes)
    {
        return client->upload(name, bytes).text("url");
    }

    /// The ids that the list answers.
    std::vector<int> listed(const std::string &query)
    {
        const auto rows = get("reports?" + query).json()->getArray("reports");
        std::vector<int> ids;
        for (std::size_t i = 0; !rows.isNull() && i < rows->size(); ++i)
            ids.push_back(rows->getObject(static_cast<unsigned>(i))->getValue<int>("id"));
        return ids;
    }

    std::optional<Client> client;
    std::optional<Client> admin;
};

TEST_F(DashboardApiTest, ServesItsPagesToEveryone)
{
    Client stranger = receiver->stranger();
    EXPECT_EQ(stranger.request("GET", "/").header.get("Location"), "dashboard/");
    const Reply page = stranger.request("GET", "/dashboard/");
    EXPECT_EQ(page.header.getContentType(), "text/html; charset=utf-8");
    EXPECT_THAT(page.header.get("Content-Security-Policy"), HasSubstr("default-src 'none'"));
    const Reply script = stranger.request("GET", "/dashboard/assets/chart.js");
    EXPECT_EQ(script.header.getContentType(), "text/javascript; charset=utf-8");
    EXPECT_THAT(script.body, HasSubstr("Chart.js v3"));
    EXPECT_THAT(stranger.request("GET", "/dashboard/assets/chart.js.LICENSE").body, HasSubstr("MIT"));
    stranger.headers = {{"If-None-Match", script.header.get("ETag")}};
    const Reply again = stranger.request("GET", "/dashboard/assets/chart.js");
    EXPECT_EQ(again.status, 304);
    EXPECT_THAT(again.body, IsEmpty());
    EXPECT_FALSE(again.header.hasContentLength());
    EXPECT_EQ(stranger.request("GET", "/dashboard/").status, 200) << "after 304 on the same connection";
    for (const char *nothing : {"none.js", "..%2findex.html", "%00", ""})
        EXPECT_EQ(stranger.request("GET", std::string("/dashboard/assets/") + nothing).status,
                  *nothing ? 404 : 200);
}

TEST_F(DashboardApiTest, FindsFiltersAndSorts)
{
    report(R"("description":"Crash at 100%\nin the café","tester_email":"b@x.org","device":"A2",
              "app_version":"1.0","os_version":"17.1","os":"iOS")");
    report(R"("description":"crash too","tester_email":"a@x.org","device":"A1","app_version":"2.0")");
    report(R"("description":"Frozen","tester_email":"c@x.org","device":"A1","app_version":"2.0")", {},
           {{"a.txt", "a"}, {"b.txt", "b"}}, "org.example.b");

    const auto all = get("reports").json();
    EXPECT_EQ(all->getValue<int>("total"), 3);
    EXPECT_EQ(all->getValue<int>("newest"), 3);
    const auto last = all->getArray("reports")->getObject(2);
    EXPECT_EQ(last->getValue<std::string>("summary"), "Crash at 100%");
    EXPECT_EQ(last->getValue<std::string>("os_version"), "iOS 17.1");
    EXPECT_EQ(all->getArray("reports")->getObject(0)->getValue<int>("files"), 2);

    EXPECT_THAT(listed("search=CRASH"), ElementsAre(2, 1));
    EXPECT_THAT(listed("search=the+CAF%C3%89"), ElementsAre(1));
    EXPECT_THAT(listed("search=0%25"), ElementsAre(1));
    EXPECT_THAT(listed("search=x_org"), IsEmpty());
    EXPECT_THAT(listed("search=a@x.org&bundle_id="), ElementsAre(2));
    EXPECT_THAT(listed("bundle_id=org.example.b"), ElementsAre(3));
    EXPECT_THAT(listed("version=2.0&device=A1&bundle_id=" + bundleId), ElementsAre(2));
    EXPECT_THAT(listed("from=0&to=1"), IsEmpty());
    EXPECT_THAT(listed("from=1000000000000"), ElementsAre(3, 2, 1));
    EXPECT_THAT(listed("sort=received"), ElementsAre(1, 2, 3));
    EXPECT_THAT(listed("sort=tester"), ElementsAre(2, 1, 3));
    EXPECT_THAT(listed("sort=-device"), ElementsAre(1, 3, 2));
    EXPECT_THAT(listed("size=2"), ElementsAre(3, 2));
    EXPECT_THAT(listed("size=2&page=2"), ElementsAre(1));
    EXPECT_EQ(get("reports?size=2&page=9").json()->getValue<int>("total"), 3);

    const std::string both = get("filters").body;
    EXPECT_EQ(both, R"({"versions":["2.0","1.0"],"devices":["A1","A2"]})");
    EXPECT_EQ(get("filters?bundle_id=org.example.b").body, R"({"versions":["2.0"],"devices":["A1"]})");
}

TEST_F(DashboardApiTest, RefusesBadQueries)
{
    for (const char *query :
         {"size=0", "size=201", "size=x", "size=1x", "page=0", "page=99999999999999999999", "from=-1",
          "to=1.5", "sort=id", "sort=-", "sort=received,id", "bundle_id=../x", "search=%ff", "device=%00",
          "device=a&device=b", "colour=red", "%ff=1", "=1"}) {
        const Reply reply = get(std::string("reports?") + query);
        EXPECT_EQ(reply.status, 400) << query;
        EXPECT_NE(reply.text("error"), "") << query;
    }
    EXPECT_EQ(get("reports?search=" + std::string(1001, 'a')).status, 400);
    EXPECT_EQ(get("filters?device=a").status, 400);
    for (const char *id : {"0", "-1", "x", "1x", "99999999999999999999", "2"})
        EXPECT_EQ(get(std::string("reports/") + id).status, 404) << id;
    const std::string retention = api + "applications/" + bundleId + "/retention";
    for (const char *body :
         {"{}", "[]", "", R"({"max_age_days":0,"max_bytes":null})",
          R"({"max_age_days":1.5,"max_bytes":null})", R"({"max_age_days":true,"max_bytes":null})",
          R"({"max_age_days":"1","max_bytes":null})",
          R"({"max_age_days":null,"max_bytes":18446744073709551615})"})
        EXPECT_EQ(admin->request("PUT", retention, body).status, 400) << body;
}

TEST_F(DashboardApiTest, GivesHostileReportsAsTheyAre)
{
    const std::string script = "<script>alert(1)</script>\\u2028\\\"'";
    report("\"description\":\"" + script + "\",\"tester_email\":\"" + script + "\",\"device\":\"\\u0000<b>\"",
           {},
           {{"<img src=x onerror=alert(1)>.svg",
             "<svg xmlns='http://www.w3.org/2000/svg' onload='alert(1)'/>"}});
    const Reply list = get("reports");
    EXPECT_EQ(list.header.getContentType(), "application/json");
    EXPECT_EQ(list.header.get("X-Content-Type-Options"), "nosniff");
    const auto row = list.json()->getArray("reports")->getObject(0);
    EXPECT_EQ(row->getValue<std::string>("summary"), "<script>alert(1)</script>\u2028\"'");
    const auto view = get("reports/1").json();
    EXPECT_EQ(view->getObject("report")->getValue<std::string>("description"),
              "<script>alert(1)</script>\u2028\"'");
    const auto file = view->getArray("files")->getObject(0);
    EXPECT_EQ(file->getValue<std::string>("name"), "<img src=x onerror=alert(1)>.svg");
    const Reply svg = admin->request("GET", "/api/1.0/files/" + file->getValue<std::string>("id"));
    EXPECT_EQ(svg.header.getContentType(), "application/octet-stream");
    EXPECT_THAT(svg.header.get("Content-Disposition"), testing::StartsWith("attachment"));
    EXPECT_THAT(svg.header.get("Content-Security-Policy"), HasSubstr("sandbox"));
}

TEST_F(DashboardApiTest, MakesThumbnails)
{
    const auto thumbnail = [&](const std::string &screenshot) {
        static int number = 0;
        return get("reports/" + report("\"n\":" + std::to_string(++number), screenshot) + "/thumbnail");
    };
    const auto size = [&](int width, int height) {
        const PictureSize made = jpegSize(thumbnail(jpeg(width, height)).body);
        return std::pair(made.width, made.height);
    };
    EXPECT_EQ(size(1440, 3200), std::pair(72, 160));
    EXPECT_EQ(size(2732, 2048), std::pair(213, 160));
    EXPECT_EQ(size(8000, 100), std::pair(640, 8));
    EXPECT_EQ(size(20, 30), std::pair(20, 30));

    std::string large = jpeg(1000, 1000);
    const Reply good = thumbnail(large);
    EXPECT_EQ(good.header.getContentType(), "image/jpeg");
    EXPECT_THAT(good.header.get("Cache-Control"), HasSubstr("no-cache")) << "or it outlives the report";
    EXPECT_NE(jpegSize(thumbnail(large.substr(0, large.size() / 2)).body).height, 0) << "half a picture";
    const std::size_t frame = large.find("\xff\xc0");
    const auto patched = [&](char kind, const std::string &size, int scans) {
        std::string picture = large;
        picture[frame + 1] = kind;
        picture.replace(frame + 5, 4, size); // the height and the width
        for (int i = 0; i < scans; ++i)
            picture += "\xff\xda";
        return thumbnail(picture).status;
    };
    EXPECT_EQ(patched('\xc0', "\xff\xff\xff\xff", 0), 404) << "65535 pixels in each direction";
    EXPECT_EQ(patched('\xc0', "\x0c\x00\x0c\x00"s, 0), 200);
    EXPECT_EQ(patched('\xc2', "\x0c\x00\x0c\x00"s, 0), 404) << "progressive and large";
    EXPECT_EQ(patched('\xc0', "\x03\xe8\x03\xe8", 30), 404) << "many scans";
    EXPECT_EQ(thumbnail("\xff\xd8\xff no picture").status, 404);
    EXPECT_EQ(thumbnail("<script>").status, 404);
    const std::string png = "\x89PNG\r\n\x1a\n";
    EXPECT_EQ(thumbnail(png).body, png);
    EXPECT_EQ(thumbnail(png + std::string(512 * 1024, 'x')).status, 404);
    EXPECT_EQ(get("reports/" + report("\"none\":1") + "/thumbnail").status, 404);
}

/// The entries of a zip archive, by their names.
std::map<std::string, std::string> unpacked(const std::string &zip)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe)
    std::setlocale(LC_CTYPE, "C.UTF-8"); // as which the reader gives the names
    std::map<std::string, std::string> entries;
    archive *reader = archive_read_new();
    archive_read_support_format_zip_seekable(reader);
    EXPECT_EQ(archive_read_open_memory(reader, zip.data(), zip.size()), ARCHIVE_OK);
    for (archive_entry *entry = nullptr; archive_read_next_header(reader, &entry) == ARCHIVE_OK;) {
        std::string bytes(static_cast<std::size_t>(archive_entry_size(entry)), '\0');
        EXPECT_EQ(archive_read_data(reader, bytes.data(), bytes.size()),
                  static_cast<la_ssize_t>(bytes.size()));
        entries[archive_entry_pathname_utf8(entry)] = bytes;
    }
    archive_read_free(reader);
    return entries;
}

TEST_F(DashboardApiTest, PacksAReportIntoOneArchive)
{
    const std::string picture = jpeg(100, 100);
    const std::string large(3'000'000, 'x');
    const std::string id = report(R"("title":"é")", picture,
                                  {{"../../etc/passwd", "1"},
                                   {"CON.txt", "2"},
                                   {"A.log", "3"},
                                   {"a.log", large},
                                   {"", "5"},
                                   {"é\u202egpj.exe", "6"},
                                   {"empty", ""}});
    const Reply reply = get("reports/" + id + "/archive");
    EXPECT_EQ(reply.header.getContentType(), "application/zip");
    EXPECT_EQ(reply.header.get("Content-Disposition"), "attachment; filename=\"report-" + id + ".zip\"");
    auto entries = unpacked(reply.body);
    EXPECT_THAT(entries["report.json"], testing::StartsWith(R"({"title":"é",)"));
    entries.erase("report.json");
    const std::map<std::string, std::string> expected
        = {{"screenshot.jpeg", picture},     {"attachments/_.._etc_passwd", "1"},
           {"attachments/_CON.txt", "2"},    {"attachments/A.log", "3"},
           {"attachments/a (2).log", large}, {"attachments/file", "5"},
           {"attachments/é_gpj.exe", "6"},   {"attachments/empty", ""}};
    EXPECT_EQ(entries.size(), expected.size());
    for (const auto &[name, bytes] : expected)
        EXPECT_TRUE(entries[name] == bytes) << name << " has " << entries[name].size() << " bytes";
    EXPECT_EQ(get("reports").status, 200) << "after an archive on the same connection";
}

TEST_F(DashboardApiTest, NeverEndsAHalfArchiveAsAWhole)
{
    const std::string id = report("\"n\":1", {}, {{"a", "lost"}, {"b", std::string(200'000, 'b')}});
    const auto fetch = [&](const std::string &version) {
        auto socket = receiver->connect();
        send(socket,
             "GET " + api + "reports/" + id + "/archive HTTP/" + version
                 + "\r\nConnection: close\r\nCookie: " + admin->headers.at("Cookie") + "\r\n\r\n");
        return readUntilClosed(socket).value_or("open");
    };
    const std::string whole = fetch("1.0"); // which knows no chunks
    EXPECT_EQ(unpacked(whole.substr(whole.find("\r\n\r\n") + 4)).size(), 3U);
    EXPECT_TRUE(fetch("1.1").ends_with("\r\n0\r\n\r\n"));
    std::filesystem::remove_all(data / "files");
    const std::string half = fetch("1.1");
    EXPECT_THAT(half, testing::StartsWith("HTTP/1.1 200"));
    EXPECT_FALSE(half.ends_with("\r\n0\r\n\r\n"));
    EXPECT_EQ(get("reports").status, 200);
}

TEST_F(DashboardApiTest, ArchivesApplicationsAndLimitsThem)
{
    const std::string application = api + "applications/" + bundleId;
    report("");
    EXPECT_EQ(admin->post(application + "/archive", "").status, 204);
    EXPECT_EQ(client->sendReport("{\"a\":1}").status, 403);
    EXPECT_EQ(
        admin->request("PUT", application + "/retention", R"({"max_age_days":90,"max_bytes":null})").status,
        204);
    const auto listed = get("applications").json()->getArray("applications")->getObject(0);
    EXPECT_EQ(listed->getValue<std::string>("bundle_id"), bundleId);
    EXPECT_TRUE(listed->getValue<bool>("archived"));
    EXPECT_EQ(listed->getValue<int>("reports"), 1);
    EXPECT_GT(listed->getValue<int>("bytes"), 0);
    EXPECT_EQ(listed->getValue<int>("max_age_days"), 90);
    EXPECT_TRUE(listed->isNull("max_bytes"));
    EXPECT_EQ(admin->post(application + "/unarchive", "").status, 204);
    EXPECT_EQ(client->sendReport("{\"a\":1}").status, 200);
    EXPECT_EQ(admin->post(api + "applications/..%2fx/archive", "").status, 400);
    EXPECT_EQ(admin
                  ->request("PUT", api + "applications/org.example.none/retention",
                            R"({"max_age_days":null,"max_bytes":null})")
                  .status,
              404);
}

TEST_F(DashboardApiTest, DeletesForGood)
{
    const std::string id = report(R"("description":"gone")", jpeg(10, 10), {{"a.txt", "text"}});
    const std::string address = api + "reports/" + id;
    const auto view = get("reports/" + id).json();
    const std::string file = view->getArray("files")->getObject(0)->getValue<std::string>("id");
    const std::string screenshot = view->getObject("screenshot")->getValue<std::string>("id");
    EXPECT_EQ(admin->request("GET", "/api/1.0/files/" + file).body, "text");
    EXPECT_EQ(admin->request("DELETE", address).status, 204);
    for (const std::string &path : {address, address + "/thumbnail", address + "/archive",
                                    "/api/1.0/files/" + file, "/api/1.0/files/" + screenshot})
        EXPECT_EQ(admin->request("GET", path).status, 404) << path;
    EXPECT_EQ(admin->request("DELETE", address).status, 404);
    EXPECT_THAT(listed("search=gone"), IsEmpty());
    EXPECT_NE(report(R"("description":"next")"), id) << "an id was given again";
}

} // namespace
