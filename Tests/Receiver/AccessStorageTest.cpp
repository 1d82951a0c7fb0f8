#include "Support/StorageFixture.h"

#include "Access/Administrator.h"
#include "Access/ClientDirectory.h"
#include "Access/Password.h"
#include "Access/SessionStore.h"

namespace {

using namespace wexel::receiver;

class AccessStorageTest : public StorageFixture
{
protected:
    DataFolder storage{place, DataFolder::Access::Serve};
    const std::int64_t begin = 1'000'000'000'000;
};

INSTANTIATE_TEST_SUITE_P(Databases, AccessStorageTest, testing::Values(Keeping::Sqlite, Keeping::PostgreSql),
                         nameOf);

TEST_P(AccessStorageTest, SessionsExpireWhenIdleAndWhenOld)
{
    SessionStore sessions(storage.database());
    const std::string idle = sessions.start(begin);
    const std::string busy = sessions.start(begin);
    std::int64_t now = begin;
    for (; now < begin + SessionStore::longestLife; now += SessionStore::longestIdle / 2)
        ASSERT_TRUE(sessions.find(busy, now)) << now - begin;
    EXPECT_FALSE(sessions.find(busy, begin + SessionStore::longestLife));
    EXPECT_TRUE(sessions.find(idle, begin + SessionStore::longestIdle - 1));
    const std::string late = sessions.start(begin);
    EXPECT_FALSE(sessions.find(late, begin + SessionStore::longestIdle));
    EXPECT_FALSE(sessions.find("", begin));
    EXPECT_FALSE(sessions.find(SessionStore::describe(late).digest, begin));
}

TEST_P(AccessStorageTest, OneFirstPasswordIsSetAndTheNextEndsSessions)
{
    Administrator administrator(storage.database());
    SessionStore sessions(storage.database());
    EXPECT_EQ(administrator.hash(), "");
    EXPECT_TRUE(administrator.setFirstPassword("the first password"));
    EXPECT_FALSE(administrator.setFirstPassword("that of another receiver"));
    EXPECT_TRUE(isPassword(administrator.hash(), "the first password"));
    const std::string session = sessions.start(begin);
    administrator.setPassword("the next password");
    EXPECT_FALSE(isPassword(administrator.hash(), "the first password"));
    EXPECT_TRUE(isPassword(administrator.hash(), "the next password"));
    EXPECT_FALSE(sessions.find(session, begin));
}

TEST_P(AccessStorageTest, ClientsComeAndGoWithTheirTokens)
{
    const Clients commandLine;
    ClientStore clients(storage.database());
    ClientDirectory directory(commandLine, clients, storage.tokens());
    const std::string secret = clients.add("beta", {"b", "a", "a"}, begin).value();
    EXPECT_FALSE(clients.add("beta", {}, begin));
    EXPECT_FALSE(directory.issueToken("beta", secret + "0", 60, begin));
    const std::string token = directory.issueToken("beta", secret, 60, begin).value();
    EXPECT_EQ(directory.callerOf(token, begin + 1).value().bundleIds, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(clients.find("beta")->lastUsed, begin + 1);
    EXPECT_TRUE(directory.callerOf(token, begin + 2));
    EXPECT_EQ(clients.find("beta")->lastUsed, begin + 1) << "kept to the hour";
    EXPECT_FALSE(directory.callerOf(token, begin + 60'000));

    const std::string next = clients.rotate("beta").value();
    EXPECT_FALSE(directory.callerOf(token, begin));
    EXPECT_FALSE(directory.issueToken("beta", secret, 60, begin));
    const std::string last = directory.issueToken("beta", next, 60, begin).value();
    EXPECT_TRUE(clients.revoke("beta"));
    EXPECT_FALSE(directory.callerOf(last, begin));
    EXPECT_FALSE(clients.rotate("beta"));
    EXPECT_FALSE(clients.revoke("gamma"));
    EXPECT_TRUE(clients.all().at(0).isRevoked);
}

} // namespace
