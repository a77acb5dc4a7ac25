// Connection texts that name several servers: the list, each server's port
// (its own or PORT=), the order of trying, and one server as before.
#include <gtest/gtest.h>

#include "corvane/frame/internal/connection_text.h"

namespace corvane::internal {
namespace {

TEST(ConnectionServersTest, OneServerIsOneServerAsBefore) {
  const ConnectionParams p = ParseConnectionText("SERVER=db1;PORT=3307;UID=u");
  EXPECT_EQ("db1", p.server);
  EXPECT_EQ(3307u, p.port);
  EXPECT_TRUE(p.servers.empty());
  EXPECT_FALSE(p.random_start);
}

TEST(ConnectionServersTest, OneServerWithItsPortTakesThatPort) {
  const ConnectionParams p = ParseConnectionText("SERVER=127.0.0.1:4306;PORT=3306");
  EXPECT_EQ("127.0.0.1", p.server);
  EXPECT_EQ(4306u, p.port);
  EXPECT_TRUE(p.servers.empty());
}

TEST(ConnectionServersTest, AListKeepsItsOrderAndGivesPortToServersWithoutOne) {
  const ConnectionParams p =
      ParseConnectionText("SERVER= h1:4306 , h2 ,h3:4308;DATABASE=d;PORT=4000");
  ASSERT_EQ(3u, p.servers.size());
  EXPECT_EQ("h1", p.servers[0].host);
  EXPECT_EQ(4306u, p.servers[0].port);
  EXPECT_EQ("h2", p.servers[1].host);
  EXPECT_EQ(4000u, p.servers[1].port);
  EXPECT_EQ("h3", p.servers[2].host);
  EXPECT_EQ(4308u, p.servers[2].port);
  EXPECT_EQ("h1", p.server);
  EXPECT_EQ("d", p.database);
  EXPECT_FALSE(p.random_start);
}

TEST(ConnectionServersTest, LoadBalanceRandomStartsAnywhere) {
  EXPECT_TRUE(ParseConnectionText("SERVER=a,b;LOADBALANCE=random").random_start);
  EXPECT_TRUE(ParseConnectionText("SERVER=a,b;loadbalance=RANDOM").random_start);
  EXPECT_FALSE(ParseConnectionText("SERVER=a,b;LOADBALANCE=first").random_start);
}

TEST(ConnectionServersTest, AnAddressWithSeveralColonsIsAllHost) {
  const ConnectionParams p = ParseConnectionText("SERVER=::1;PORT=3310");
  EXPECT_EQ("::1", p.server);
  EXPECT_EQ(3310u, p.port);
  EXPECT_TRUE(p.servers.empty());
}

TEST(ConnectionServersTest, ALaterServerItemReplacesTheList) {
  const ConnectionParams p = ParseConnectionText("SERVER=a,b,c;SERVER=d");
  EXPECT_EQ("d", p.server);
  EXPECT_TRUE(p.servers.empty());
}

}  // namespace
}  // namespace corvane::internal
