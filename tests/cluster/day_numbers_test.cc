// Several client threads add orders with the day's numbers, each on its own
// node of the cluster, at the same time; in the second run a node is killed
// with SIGKILL in the middle and started again. Every AddRecord either
// returns 1 and its order is on every node afterwards, or returns 2 (the
// number is taken) with no report, or shows its report and returns 0; no two
// acknowledged orders share a number; the clients of the killed node go on
// through the others, and the node catches up and serves again.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "corvane/frame/internal/link.h"
#include "corvane/orders/order_header.h"
#include "tests/cluster/cluster_test.h"

namespace corvane {
namespace {

using ::corvane::testing::ClusterCounts;
using ::corvane::testing::ClusterScript;
using ::corvane::testing::ClusterTest;
using ::corvane::testing::ClusterText;
using ::corvane::testing::kNodes;
using ::corvane::testing::tl_reports;
using Clock = std::chrono::steady_clock;

constexpr int kOrdersPerClient = 20;
constexpr int kAttempts = 12;

class DayNumbersTest : public ClusterTest {
 protected:
  // One client: adds kOrdersPerClient orders over a text that starts at node
  // first, as an application would: the day's last number plus one, the
  // next one when that is taken, the counter advanced after each order.
  void Client(int first) {
    std::unique_ptr<clsDataBOrderh> orders;
    std::unique_ptr<clsDbSession> probe;
    {
      std::lock_guard<std::mutex> lock(make_mu_);
      SetSessionConnectionString(ClusterText(database(), first));
      orders = std::make_unique<clsDataBOrderh>();
      probe = std::make_unique<clsDbSession>();
      probe->Open();
    }
    long calls = 0;
    double floor = 0;  // past the numbers this client has tried
    int done = 0;
    const auto deadline = Clock::now() + std::chrono::seconds(150);
    while (done < kOrdersPerClient && Clock::now() < deadline) {
      long before = tl_reports;
      const std::int16_t today = orders->QueryTF();
      clsEntSitemNo last;
      orders->QueryChkitemiNo(last);
      calls += 2;
      if (today == 0 || last.no == 0) {
        EXPECT_LT(before, tl_reports) << "a failed read shows its report";
        continue;
      }
      double number = std::max(today == 2 ? last.no + 1 : last.no, floor);
      for (int attempt = 0; attempt < kAttempts; ++attempt, number += 1) {
        floor = number + 1;
        clsEntBOrderh order;
        order.OrderNo = number;
        order.OrderDate = last.fndate;
        order.CustNo = "C" + std::to_string(first);
        order.Tabler = "client" + std::to_string(first);
        order.Currency = "CNY";
        before = tl_reports;
        const std::int16_t r = orders->AddRecord(order);
        ++calls;
        const long shown = tl_reports - before;
        if (r == 1) {
          EXPECT_EQ(0, shown) << number;
          {
            std::lock_guard<std::mutex> lock(mu_);
            acknowledged_.push_back(number);
            ++acks_by_client_[first];
            if (killed_) ++acks_after_kill_[first];
          }
          ++acks_;
          orders->UpdateAddSitemNo();
          ++calls;
          ++done;
          break;
        }
        if (r == 2) {
          EXPECT_EQ(0, shown) << number;  // taken: refused without a report
        } else {
          EXPECT_EQ(0, r) << number;
          EXPECT_EQ(1, shown) << number;
        }
      }
    }
    EXPECT_EQ(kOrdersPerClient, done) << "client on node " << first;
    std::lock_guard<std::mutex> lock(mu_);
    calls_ += calls;
    failovers_ += static_cast<long>(probe->Connection()->link().failovers());
    last_server_[first] = probe->Connection()->link().ServerInUse();
  }

  // Checks what the clients acknowledged against every node, counts, prints.
  void Verify(const char* what) {
    ClusterCounts counts;
    counts.calls = calls_;
    counts.acknowledged = static_cast<long>(acknowledged_.size());
    counts.reports = static_cast<long>(report_count());
    counts.failovers = failovers_;
    std::set<std::string> acked;
    for (double n : acknowledged_) {
      EXPECT_TRUE(acked.insert(Text(n)).second) << "two acknowledged orders share " << Text(n);
    }
    std::map<std::string, int> on_nodes;
    for (int n = 1; n <= kNodes; ++n) {
      for (const auto& row : OnNode(n)->Rows("select cast(F_OrderNo as char) from t_borderh")) {
        ++on_nodes[row[0]];
      }
    }
    for (const std::string& number : acked) {
      EXPECT_EQ(kNodes, on_nodes[number]) << "acknowledged order " << number;
      if (on_nodes[number] == kNodes) ++counts.found;
    }
    // Every node holds the same orders.
    for (const auto& [number, nodes] : on_nodes) EXPECT_EQ(kNodes, nodes) << number;
    // Every report is the report of a failed call.
    std::map<std::string, int> texts;
    for (const Report& r : reports()) {
      EXPECT_EQ(64, r.style) << r.text;
      EXPECT_EQ("塔恩维克", r.title);
      std::string text = r.text;  // numbers in the words masked, to group them
      for (char& c : text) c = std::isdigit(static_cast<unsigned char>(c)) ? '#' : c;
      ++texts[text];
    }
    for (const auto& [text, times] : texts) std::printf("  %d x %s\n", times, text.c_str());
    ::corvane::testing::PrintCounts(what, counts);
    EXPECT_EQ(counts.acknowledged, counts.found);
  }

  std::mutex make_mu_;
  std::mutex mu_;
  std::vector<double> acknowledged_;
  std::map<int, long> acks_by_client_;
  std::map<int, long> acks_after_kill_;
  std::map<int, std::string> last_server_;
  std::atomic<long> acks_{0};
  std::atomic<bool> killed_{false};
  long calls_ = 0;
  long failovers_ = 0;
};

TEST_F(DayNumbersTest, ClientsOnThreeNodesAddOrdersAtOnce) {
  std::vector<std::thread> clients;
  for (int first = 1; first <= kNodes; ++first) clients.emplace_back([this, first] { Client(first); });
  for (std::thread& t : clients) t.join();
  EXPECT_EQ(0, failovers_);
  for (int first = 1; first <= kNodes; ++first) {
    EXPECT_EQ(kOrdersPerClient, acks_by_client_[first]);
    EXPECT_EQ("127.0.0.1:" + std::to_string(4305 + first), last_server_[first]);
  }
  Verify("concurrent day numbers");
}

TEST_F(DayNumbersTest, ANodeKilledMidRunLosesNothingAndServesAgainAfterItRejoins) {
  std::vector<std::thread> clients;
  for (int first = 1; first <= kNodes; ++first) clients.emplace_back([this, first] { Client(first); });
  // Node 2 is killed once the clients are well under way.
  const auto deadline = Clock::now() + std::chrono::seconds(60);
  while (acks_ < 8 && Clock::now() < deadline) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  ClusterScript("kill 2");
  killed_ = true;
  const long at_kill = acks_;
  // It is started again while the others take more orders; the start
  // returns when it has caught up by state transfer and is synced.
  while (acks_ < at_kill + 8 && Clock::now() < deadline + std::chrono::seconds(60)) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  ClusterScript("restart 2");
  for (std::thread& t : clients) t.join();

  // The client that was on node 2 went on through another node.
  EXPECT_GE(failovers_, 1);
  EXPECT_GT(acks_after_kill_[2], 0);
  EXPECT_NE("127.0.0.1:4307", last_server_[2]);
  for (int first = 1; first <= kNodes; ++first) EXPECT_EQ(kOrdersPerClient, acks_by_client_[first]);
  Verify("node killed and rejoined");

  // The rejoined node serves a new link again (a text of its own: the idle
  // links of the clients' text stay where they went).
  SetSessionConnectionString(ClusterText(database(), 2) + ";OPTION=3");
  clsDataBOrderh orders;
  clsDbSession probe;
  probe.Open();
  EXPECT_EQ("127.0.0.1:4307", probe.Connection()->link().ServerInUse());
  EXPECT_EQ(2, orders.QueryTF());
  clsEntSitemNo last;
  orders.QueryChkitemiNo(last);
  clsEntBOrderh order;
  order.OrderNo = std::max(last.no, *std::max_element(acknowledged_.begin(), acknowledged_.end())) + 1;
  order.Currency = "CNY";
  EXPECT_EQ(1, orders.AddRecord(order));
  for (int n = 1; n <= kNodes; ++n) {
    EXPECT_EQ("1", OnNode(n)->Value("select count(*) from t_borderh where F_OrderNo=" +
                                    Text(order.OrderNo)))
        << "node " << n;
  }
}

}  // namespace
}  // namespace corvane
