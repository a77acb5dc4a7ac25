// The server's own limits on a private server: a link the server ends after
// wait_timeout of idleness is replaced at the object's next call without a
// report; a statement larger than max_allowed_packet fails with a report and
// the object works afterwards.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "corvane/orders/order_type.h"
#include "tests/faults/fault_test.h"

namespace corvane {
namespace {

using ::corvane::testing::FaultCounts;
using ::corvane::testing::FaultTest;

class ServerLimitsTest : public FaultTest {
 protected:
  std::int16_t Add(clsDataBOrderType& repo, const std::string& name, FaultCounts& counts) {
    clsEntBOrderType e{name};
    const std::int16_t r = repo.AddRecord(e);
    ++counts.calls;
    if (r == 1) ++counts.acknowledged;
    return r;
  }
  long LibraryConnections() {
    return static_cast<long>(
        server().Rows("select id from information_schema.processlist where user='corvane'").size());
  }
};

TEST_F(ServerLimitsTest, AnObjectIdleLongerThanWaitTimeoutWorksAtItsNextCall) {
  StartServer({"wait_timeout=2"});
  FaultCounts counts;
  clsDataBOrderType keeper;
  EXPECT_EQ(1, Add(keeper, "first", counts));
  ASSERT_EQ(1, LibraryConnections());
  // Idle for 3 seconds: the server ends the link after 2 (on a loaded
  // machine it may take a little longer to show).
  std::this_thread::sleep_for(std::chrono::seconds(3));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (LibraryConnections() != 0 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  ASSERT_EQ(0, LibraryConnections()) << "the server should have ended the idle link";

  EXPECT_EQ(1, Add(keeper, "second", counts));
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(0, keeper.QueryAll(&all));
  ++counts.calls;
  EXPECT_EQ(2u, all.Count());
  EXPECT_TRUE(reports().empty());
  counts.found = static_cast<long>(OrderTypes().size());
  counts.reports = static_cast<long>(reports().size());
  EXPECT_EQ(counts.acknowledged, counts.found);
  Print("wait_timeout", counts);
}

TEST_F(ServerLimitsTest, AStatementLargerThanMaxAllowedPacketReportsAndTheObjectGoesOn) {
  StartServer({"max_allowed_packet=1M"});
  FaultCounts counts;
  clsDataBOrderType keeper;
  EXPECT_EQ(1, Add(keeper, "small", counts));
  // The add's first statement carries the name: 2 MB, twice the limit.
  EXPECT_EQ(0, Add(keeper, std::string(2 << 20, 'x'), counts));
  ASSERT_EQ(1u, reports().size());
  EXPECT_EQ(64, reports()[0].style);
  EXPECT_EQ("塔恩维克", reports()[0].title);
  EXPECT_FALSE(reports()[0].text.empty());

  EXPECT_EQ(1, Add(keeper, "after", counts));
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(0, keeper.QueryAll(&all));
  ++counts.calls;
  EXPECT_EQ(2u, all.Count());
  EXPECT_EQ(1u, reports().size());
  counts.found = static_cast<long>(OrderTypes().size());
  counts.reports = static_cast<long>(reports().size());
  EXPECT_EQ(counts.acknowledged, counts.found);
  Print("max_allowed_packet", counts);
}

}  // namespace
}  // namespace corvane
