// Whole-program benchmarks against the sandbox server, each library path
// beside the very same statement bytes sent by hand with Connector/C on one
// connection (the library's statements are recorded through the statement
// observer, then replayed), printed as ratios of one run on one machine:
//
//   road         day number, order, two lines, totals, check, approval; per order
//   short-lived  create a repository, one QueryAll, release; x2000, against one
//                object reused for the 2000 calls
//   listing      QueryAll of 20,000 rows against the same select read by hand
//                into the same entities: the client thread's CPU time
//   big add      AddRecord on a table of 10^6 rows against one of 10^3 rows,
//                two objects on two databases filled beforehand, their calls
//                alternating (so the server's work after the fill weighs on
//                both alike); wall time (median of 41) and peak memory
//
//   scripts/sandbox.sh start && build-rel/bench/corvane_road_bench [orders]
#include <mysql.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/listing_by_hand.h"
#include "bench/order_road.h"
#include "corvane/corvane.h"

namespace {

using Clock = std::chrono::steady_clock;
const char kDatabase[] = "corvane_road_bench";
const char kSmallDatabase[] = "corvane_road_bench_small";

std::string Env(const char* name, const char* fallback) {
  const char* v = std::getenv(name);
  return v != nullptr && *v != '\0' ? v : fallback;
}

MYSQL* Connect(const char* database, unsigned long flags = 0) {
  MYSQL* m = mysql_init(nullptr);
  mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (mysql_real_connect(m, Env("CORVANE_TEST_SERVER", "127.0.0.1").c_str(), "corvane", "corvane",
                         database, 3306, nullptr, flags) == nullptr) {
    throw std::runtime_error(mysql_error(m));
  }
  return m;
}

// Runs a statement and reads whatever it returns to the end.
void Run(MYSQL* m, const std::string& sql) {
  if (mysql_real_query(m, sql.data(), sql.size()) != 0) {
    throw std::runtime_error(std::string(mysql_error(m)) + "\n" + sql);
  }
  do {
    if (MYSQL_RES* r = mysql_use_result(m)) {
      while (mysql_fetch_row(r) != nullptr) {
      }
      mysql_free_result(r);
    }
  } while (mysql_next_result(m) == 0);
}

// A fresh bench database with the business schema.
void FreshDatabase(const char* database = kDatabase) {
  MYSQL* m = Connect(nullptr, CLIENT_MULTI_STATEMENTS);
  Run(m, std::string("DROP DATABASE IF EXISTS ") + database);
  Run(m, std::string("CREATE DATABASE ") + database);
  Run(m, std::string("USE ") + database);
  std::ifstream in(std::string(CORVANE_SOURCE_DIR) + "/schema/corvane.sql");
  std::stringstream text;
  text << in.rdbuf();
  Run(m, text.str());
  mysql_close(m);
}

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

// CPU time of the calling thread, user and system.
double ThreadCpuSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
}

double CpuSeconds() {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  return static_cast<double>(u.ru_utime.tv_sec + u.ru_stime.tv_sec) +
         static_cast<double>(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

long PeakKiB() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("VmHWM:", 0) == 0) return std::atol(line.c_str() + 6);
  }
  return 0;
}

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

// The road of n orders with the library; with sent, the statements sent are
// recorded through the statement observer (the timed runs have none, as a
// client's program has none).
double LibraryRoad(int n, std::vector<std::string>* sent) {
  if (sent != nullptr) {
    corvane::SetStatementObserver([sent](corvane::StatementKind, const std::string& sql) {
      sent->push_back(sql);
    });
  }
  const Clock::time_point start = Clock::now();
  {
    corvane::clsDataBOrderh orders;
    corvane::clsDataBOrderi lines;
    for (int i = 0; i < n; ++i) corvane::bench::OneOrder(orders, lines);
  }
  const double wall = Seconds(Clock::now() - start);
  corvane::SetStatementObserver(nullptr);
  return wall;
}

double Replay(const std::vector<std::string>& statements) {
  MYSQL* m = Connect(kDatabase, CLIENT_FOUND_ROWS);
  const Clock::time_point start = Clock::now();
  for (const std::string& sql : statements) Run(m, sql);
  const double wall = Seconds(Clock::now() - start);
  mysql_close(m);
  return wall;
}

// The library's connection text for a bench database.
std::string LibraryText(const char* database) {
  return std::string("SERVER=127.0.0.1;PORT=3306;DATABASE=") + database +
         ";UID=corvane;PWD=corvane";
}

// n rounds of the library side and the reference side in turns, the side
// that goes first alternating; each side's measure (what its function
// returns) is appended to its list, and each round's two measures make one
// ratio, so that the server's drift (the disk's flush times above all)
// weighs on both sides of it alike. Returns the rounds' ratios.
template <class Library, class Reference>
std::vector<double> InTurns(int n, Library library, Reference reference,
                            std::vector<double>* library_measures,
                            std::vector<double>* reference_measures) {
  std::vector<double> ratios;
  for (int r = 0; r < n; ++r) {
    for (int k = 0; k < 2; ++k) {
      if ((k + r) % 2 == 0) {
        library_measures->push_back(library());
      } else {
        reference_measures->push_back(reference());
      }
    }
    ratios.push_back(library_measures->back() / reference_measures->back());
  }
  return ratios;
}

void FillOrderTypes(int rows, const char* database = kDatabase) {
  MYSQL* m = Connect(database);
  Run(m, "delete from t_bordertype");
  Run(m, "insert into t_bordertype select concat('type', seq) from seq_1_to_" +
             std::to_string(rows));
  mysql_close(m);
}

}  // namespace

int main(int argc, char** argv) {
  const int orders = argc > 1 ? std::atoi(argv[1]) : 300;
  const int rounds = 9;
  corvane::SetSessionConnectionString(LibraryText(kDatabase));
  corvane::SetReportHandler([](const corvane::Report& r) { throw std::runtime_error(r.text); });

  // The road: its statements recorded once, then library and replay in
  // turns, each on a fresh database.
  std::vector<std::string> sent;
  FreshDatabase();
  LibraryRoad(orders, &sent);
  std::vector<double> road_lib, road_hand;
  const std::vector<double> road_ratio = InTurns(
      rounds,
      [&] {
        FreshDatabase();
        return LibraryRoad(orders, nullptr);
      },
      [&] {
        FreshDatabase();
        return Replay(sent);
      },
      &road_lib, &road_hand);

  // Short-lived objects against one object reused.
  FreshDatabase();
  FillOrderTypes(10);
  constexpr int kCalls = 2000;
  std::vector<double> short_lived, reused;
  const std::vector<double> short_ratio = InTurns(
      rounds,
      [] {
        const Clock::time_point start = Clock::now();
        for (int i = 0; i < kCalls; ++i) {
          corvane::clsDataBOrderType repo;
          corvane::Collection<corvane::clsEntBOrderType> all;
          repo.QueryAll(&all);
        }
        return Seconds(Clock::now() - start);
      },
      [] {
        const Clock::time_point start = Clock::now();
        corvane::clsDataBOrderType repo;
        for (int i = 0; i < kCalls; ++i) {
          corvane::Collection<corvane::clsEntBOrderType> all;
          repo.QueryAll(&all);
        }
        return Seconds(Clock::now() - start);
      },
      &short_lived, &reused);

  // AddRecord on a small and on a large table, each added row taken away
  // again by hand so that the tables keep their sizes.
  FreshDatabase(kSmallDatabase);
  FillOrderTypes(1000, kSmallDatabase);
  FillOrderTypes(1000000, kDatabase);
  corvane::SetSessionConnectionString(LibraryText(kSmallDatabase));
  corvane::clsDataBOrderType small_repo;
  corvane::SetSessionConnectionString(LibraryText(kDatabase));
  corvane::clsDataBOrderType large_repo;
  MYSQL* by_hand = Connect(nullptr);
  auto add = [by_hand](corvane::clsDataBOrderType& repo, const char* database) {
    corvane::clsEntBOrderType e{"bench"};
    const Clock::time_point start = Clock::now();
    if (repo.AddRecord(e) != 1) throw std::runtime_error("the bench type was refused");
    const double wall = Seconds(Clock::now() - start);
    Run(by_hand, std::string("delete from ") + database + ".t_bordertype where F_OrderType='bench'");
    return wall;
  };
  std::vector<double> small_walls, large_walls;
  for (int r = 0; r < 5; ++r) add(small_repo, kSmallDatabase);
  const long peak_small = PeakKiB();
  for (int r = 0; r < 5; ++r) add(large_repo, kDatabase);  // the first give-up dials in place
  for (int r = 0; r < 41; ++r) {
    small_walls.push_back(add(small_repo, kSmallDatabase));
    large_walls.push_back(add(large_repo, kDatabase));
  }
  const long peak_large = PeakKiB();
  mysql_close(by_hand);
  const double add_small = Median(small_walls);
  const double add_large = Median(large_walls);

  // Listing: the client's CPU for QueryAll against the hand-written read,
  // paired as the road is, ten listings a side per round.
  FillOrderTypes(20000);
  constexpr int kListings = 10;
  std::vector<double> list_lib, list_hand, list_ratio;
  {
    corvane::clsDataBOrderType repo;
    MYSQL* m = Connect(kDatabase);
    // The CPU of ten listings, each checked whole.
    const auto listings = [](auto list) {
      const double start = ThreadCpuSeconds();
      for (int i = 0; i < kListings; ++i) {
        corvane::Collection<corvane::clsEntBOrderType> all;
        list(&all);
        if (all.Count() != 20000) throw std::runtime_error("the listing lost rows");
      }
      return ThreadCpuSeconds() - start;
    };
    list_ratio = InTurns(
        3 * rounds,
        [&] {
          return listings([&](corvane::Collection<corvane::clsEntBOrderType>* all) {
            repo.QueryAll(all);
          });
        },
        [&] {
          return listings([&](corvane::Collection<corvane::clsEntBOrderType>* all) {
            corvane::bench::ListOrderTypesByHand(m, all);
          });
        },
        &list_lib, &list_hand);
    mysql_close(m);
  }

  std::printf("Medians of %d rounds (listing: %d); a ratio is the median of the rounds' own ratios.\n\n",
              rounds, 3 * rounds);
  std::printf("| path | library | by hand / reference | ratio | target |\n");
  std::printf("| --- | --- | --- | --- | --- |\n");
  std::printf("| road, %d orders | %.3f s | %.3f s same bytes, one connection | %.3f | <= 1.05 |\n",
              orders, Median(road_lib), Median(road_hand), Median(road_ratio));
  std::printf("| short-lived objects, %d x (create, QueryAll, release) | %.3f s | %.3f s one object reused | %.3f | <= 1.15 |\n",
              kCalls, Median(short_lived), Median(reused), Median(short_ratio));
  std::printf("| QueryAll, 20,000 rows, client CPU (%d x %d listings) | %.3f s | %.3f s same select read by hand | %.3f | <= 1.15 |\n",
              3 * rounds, kListings, Median(list_lib), Median(list_hand), Median(list_ratio));
  std::printf("| AddRecord, table of 10^6 rows (median of 41) | %.3f ms | %.3f ms table of 10^3 rows | %.3f | <= 2 |\n",
              add_large * 1e3, add_small * 1e3, add_large / add_small);
  std::printf("| peak memory after the 10^6-row adds | %ld KiB | %ld KiB after the first 10^3-row adds | %.3f | <= 1.10 |\n",
              peak_large, peak_small, static_cast<double>(peak_large) / peak_small);
  std::printf("(client CPU of the whole run: %.2f s)\n", CpuSeconds());
  return 0;
}
