// A link cut in the middle of a call, by a loopback proxy between the library
// and a private server: a streamed read that loses its link fails with a
// report and never ends as a short success; an insert cut before or after it
// reached the server fails with a report; the same object works at its next
// call.
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "corvane/orders/order_type.h"
#include "tests/faults/fault_test.h"

namespace corvane {
namespace {

using ::corvane::testing::FaultCounts;
using ::corvane::testing::FaultTest;

// Relays every connection made to its port to the server's port, one thread
// polling all sockets, and cuts the link (closes both ends) when told to:
// after a number of bytes from the server, or when a client packet holds a
// text (forwarded to the server first, or not).
class CutProxy {
 public:
  explicit CutProxy(unsigned target_port) : target_port_(target_port) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in addr = Loopback(0);
    socklen_t len = sizeof addr;
    if (listener_ < 0 || bind(listener_, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
        listen(listener_, 16) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&addr), &len) != 0 || pipe(wake_) != 0) {
      throw std::runtime_error("the proxy cannot listen");
    }
    port_ = ntohs(addr.sin_port);
    thread_ = std::thread([this] { Run(); });
  }
  ~CutProxy() {
    stop_ = true;
    const char c = 0;
    if (write(wake_[1], &c, 1) != 1) std::abort();
    thread_.join();
    for (const Pair& p : pairs_) {
      close(p.client);
      close(p.server);
    }
    close(listener_);
    close(wake_[0]);
    close(wake_[1]);
  }
  CutProxy(const CutProxy&) = delete;
  CutProxy& operator=(const CutProxy&) = delete;

  unsigned port() const { return port_; }
  // The next cut: when bytes more have gone from the server to the client.
  void CutAfterServerBytes(std::size_t bytes) {
    std::lock_guard<std::mutex> lock(mu_);
    server_budget_ = bytes;
  }
  // The next cut: when a client packet holds text; forward says whether the
  // server gets that packet before the cut.
  void CutOnClientText(std::string text, bool forward) {
    std::lock_guard<std::mutex> lock(mu_);
    client_text_ = std::move(text);
    forward_ = forward;
  }
  int cuts() const { return cuts_; }

 private:
  struct Pair {
    int client, server;
  };

  static sockaddr_in Loopback(unsigned port) {
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    addr.sin_port = htons(static_cast<std::uint16_t>(port));
    return addr;
  }
  static bool SendAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
      const ssize_t n = send(fd, data, size, MSG_NOSIGNAL);
      if (n <= 0) return false;
      data += n;
      size -= static_cast<std::size_t>(n);
    }
    return true;
  }

  void Run() {
    std::vector<char> buffer(65536);
    while (!stop_) {
      std::vector<pollfd> fds{{wake_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
      for (const Pair& p : pairs_) {
        fds.push_back({p.client, POLLIN, 0});
        fds.push_back({p.server, POLLIN, 0});
      }
      if (poll(fds.data(), fds.size(), -1) < 0) continue;
      if (fds[0].revents != 0) break;
      std::vector<std::size_t> ended;
      for (std::size_t i = 0; i < pairs_.size(); ++i) {
        const bool from_client = fds[2 + 2 * i].revents != 0;
        const bool from_server = fds[3 + 2 * i].revents != 0;
        if ((from_client && !Relay(pairs_[i], true, buffer)) ||
            (from_server && !Relay(pairs_[i], false, buffer))) {
          ended.push_back(i);
        }
      }
      for (auto it = ended.rbegin(); it != ended.rend(); ++it) {
        close(pairs_[*it].client);
        close(pairs_[*it].server);
        pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(*it));
      }
      if (fds[1].revents != 0) Accept();
    }
  }

  void Accept() {
    const int client = accept(listener_, nullptr, nullptr);
    if (client < 0) return;
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in addr = Loopback(target_port_);
    if (server < 0 || connect(server, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) != 0) {
      close(client);
      if (server >= 0) close(server);
      return;
    }
    pairs_.push_back({client, server});
  }

  // Moves one read's worth of bytes; false when the pair has ended or is cut.
  bool Relay(const Pair& p, bool from_client, std::vector<char>& buffer) {
    const ssize_t n = recv(from_client ? p.client : p.server, buffer.data(), buffer.size(), 0);
    if (n <= 0) return false;
    std::size_t size = static_cast<std::size_t>(n);
    bool cut = false;
    {
      std::lock_guard<std::mutex> lock(mu_);
      if (from_client && !client_text_.empty() &&
          std::search(buffer.begin(), buffer.begin() + n, client_text_.begin(),
                      client_text_.end()) != buffer.begin() + n) {
        client_text_.clear();
        cut = true;
        if (!forward_) size = 0;
      } else if (!from_client && server_budget_ > 0) {
        if (size >= server_budget_) {
          size = server_budget_;
          server_budget_ = 0;
          cut = true;
        } else {
          server_budget_ -= size;
        }
      }
    }
    const bool sent = SendAll(from_client ? p.server : p.client, buffer.data(), size);
    if (cut) ++cuts_;
    return sent && !cut;
  }

  unsigned target_port_;
  unsigned port_ = 0;
  int listener_ = -1;
  int wake_[2] = {-1, -1};
  std::atomic<bool> stop_{false};
  std::atomic<int> cuts_{0};
  std::mutex mu_;
  std::size_t server_budget_ = 0;
  std::string client_text_;
  bool forward_ = false;
  std::vector<Pair> pairs_;  // the proxy thread's own
  std::thread thread_;
};

class CutLinkTest : public FaultTest {
 protected:
  void SetUp() override {
    StartServer();
    proxy_ = std::make_unique<CutProxy>(server().port());
    SetSessionConnectionString("SERVER=127.0.0.1;PORT=" + std::to_string(proxy_->port()) +
                               ";DATABASE=faults;UID=corvane;PWD=corvane" +
                               testing::kShortTimeouts);
  }
  void TearDown() override {
    proxy_.reset();
    FaultTest::TearDown();
  }
  CutProxy& proxy() { return *proxy_; }

 private:
  std::unique_ptr<CutProxy> proxy_;
};

TEST_F(CutLinkTest, AStreamedReadCutInTheMiddleFailsWithAReport) {
  constexpr std::size_t kRows = 20000;
  server().Exec(
      "insert into t_bordertype select concat('type-', lpad(seq, 6, '0')) from seq_1_to_20000",
      "faults");
  FaultCounts counts;
  clsDataBOrderType keeper;
  Collection<clsEntBOrderType> whole;
  EXPECT_EQ(0, keeper.QueryAll(&whole));
  ++counts.calls;
  ASSERT_EQ(kRows, whole.Count());
  ASSERT_TRUE(reports().empty());

  // Cut in the column definitions, early in the rows, and late in them.
  long short_successes = 0;
  for (const std::size_t cut_after : {40u, 2000u, 100000u, 300000u}) {
    const std::size_t before = reports().size();
    proxy().CutAfterServerBytes(cut_after);
    Collection<clsEntBOrderType> part;
    EXPECT_EQ(0, keeper.QueryAll(&part));  // the listing's result is always 0
    ++counts.calls;
    EXPECT_LT(part.Count(), kRows) << cut_after;
    if (part.Count() < kRows && reports().size() == before) ++short_successes;
    ASSERT_EQ(before + 1, reports().size()) << "a cut read must report, after " << cut_after;
    EXPECT_EQ(64, reports().back().style);
    EXPECT_EQ("塔恩维克", reports().back().title);
    EXPECT_FALSE(reports().back().text.empty());

    // The same object reads the whole table again, without a report.
    Collection<clsEntBOrderType> again;
    EXPECT_EQ(0, keeper.QueryAll(&again));
    ++counts.calls;
    EXPECT_EQ(kRows, again.Count()) << cut_after;
    EXPECT_EQ(before + 1, reports().size());
  }
  EXPECT_EQ(4, proxy().cuts());
  EXPECT_EQ(0, short_successes);
  counts.found = static_cast<long>(OrderTypes().size());
  counts.reports = static_cast<long>(reports().size());
  Print("cut streamed read", counts);
}

TEST_F(CutLinkTest, AnInsertCutBeforeOrAfterTheServerHasItFailsWithAReport) {
  FaultCounts counts;
  std::set<std::string> acknowledged;
  clsDataBOrderType keeper;
  auto add = [&](const std::string& name) {
    clsEntBOrderType e{name};
    const std::int16_t r = keeper.AddRecord(e);
    ++counts.calls;
    if (r == 1) acknowledged.insert(name);
    return r;
  };
  ASSERT_EQ(1, add("before"));
  for (int round = 0; round < 3; ++round) {
    for (const bool forward : {false, true}) {
      const std::string name = "cut" + std::to_string(round) + (forward ? "-sent" : "-held");
      const std::size_t before = reports().size();
      proxy().CutOnClientText("INSERT INTO ", forward);
      EXPECT_EQ(0, add(name)) << name;
      ASSERT_EQ(before + 1, reports().size()) << name;
      EXPECT_EQ(64, reports().back().style);
      // An insert the server never got is not there.
      if (!forward) {
        EXPECT_EQ(0u, OrderTypes().count(name)) << name;
      }
      // The object goes on at its next call.
      const std::string next = "next" + std::to_string(round) + (forward ? "-sent" : "-held");
      EXPECT_EQ(1, add(next)) << next;
      EXPECT_EQ(before + 1, reports().size());
    }
  }
  EXPECT_EQ(6, proxy().cuts());
  const std::set<std::string> found = OrderTypes();
  for (const std::string& name : acknowledged) EXPECT_EQ(1u, found.count(name)) << name;
  counts.acknowledged = static_cast<long>(acknowledged.size());
  counts.found = static_cast<long>(found.size());
  counts.reports = static_cast<long>(reports().size());
  Print("cut insert", counts);
}

}  // namespace
}  // namespace corvane
