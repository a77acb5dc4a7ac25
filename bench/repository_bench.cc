// Benchmarks of the repository frame against the sandbox server: each library
// path beside the same statements sent through Connector/C by hand, so that
// the cost of the frame shows as a ratio on one machine in one run.
//
//   scripts/sandbox.sh start && build/bench/corvane_bench
#include <benchmark/benchmark.h>
#include <mysql.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "bench/listing_by_hand.h"
#include "corvane/corvane.h"

namespace {

const char kDatabase[] = "corvane_bench";

std::string Env(const char* name, const char* fallback) {
  const char* v = std::getenv(name);
  return v != nullptr && *v != '\0' ? v : fallback;
}

MYSQL* Connect(const char* database) {
  MYSQL* m = mysql_init(nullptr);
  mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (mysql_real_connect(m, Env("CORVANE_TEST_SERVER", "127.0.0.1").c_str(), "corvane", "corvane",
                         database, 3306, nullptr, 0) == nullptr) {
    throw std::runtime_error(mysql_error(m));
  }
  return m;
}

void Exec(MYSQL* m, const std::string& sql) {
  if (mysql_real_query(m, sql.data(), sql.size()) != 0) throw std::runtime_error(mysql_error(m));
  if (MYSQL_RES* r = mysql_store_result(m)) mysql_free_result(r);
}

// A fresh bench database with the order type table holding rows rows.
void Prepare(int rows) {
  MYSQL* m = Connect(nullptr);
  Exec(m, std::string("DROP DATABASE IF EXISTS ") + kDatabase);
  Exec(m, std::string("CREATE DATABASE ") + kDatabase);
  Exec(m, std::string("USE ") + kDatabase);
  Exec(m, "CREATE TABLE t_bordertype (F_OrderType VARCHAR(50) NOT NULL PRIMARY KEY)");
  std::string insert;
  for (int i = 0; i < rows; ++i) {
    insert += (insert.empty() ? "INSERT INTO t_bordertype VALUES " : ",");
    insert += "('type" + std::to_string(i) + "')";
    if (i % 1000 == 999 || i == rows - 1) {
      Exec(m, insert);
      insert.clear();
    }
  }
  mysql_close(m);
  corvane::SetSessionConnectionString(std::string("SERVER=127.0.0.1;PORT=3306;DATABASE=") +
                                      kDatabase + ";UID=corvane;PWD=corvane");
  corvane::SetReportHandler([](const corvane::Report& r) { throw std::runtime_error(r.text); });
}

// Listing: the library's QueryAll against the same select read by hand into
// the same entities.
void BM_QueryAll_Library(benchmark::State& state) {
  Prepare(static_cast<int>(state.range(0)));
  corvane::clsDataBOrderType repo;
  for (auto _ : state) {
    corvane::Collection<corvane::clsEntBOrderType> all;
    repo.QueryAll(&all);
    benchmark::DoNotOptimize(all.Count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_QueryAll_Library)->Arg(1)->Arg(1000)->Arg(20000);

void BM_QueryAll_ByHand(benchmark::State& state) {
  Prepare(static_cast<int>(state.range(0)));
  MYSQL* m = Connect(kDatabase);
  for (auto _ : state) {
    corvane::Collection<corvane::clsEntBOrderType> all;
    corvane::bench::ListOrderTypesByHand(m, &all);
    benchmark::DoNotOptimize(all.Count());
  }
  mysql_close(m);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_QueryAll_ByHand)->Arg(1)->Arg(1000)->Arg(20000);

// Adding: the library's AddRecord (check, whole-table rowset, AddNew, Update)
// and a delete to keep the table as it was, against the same four statements
// by hand.
void BM_AddRecord_Library(benchmark::State& state) {
  Prepare(static_cast<int>(state.range(0)));
  corvane::clsDataBOrderType repo;
  corvane::clsEntBOrderType e{"bench"};
  MYSQL* m = Connect(kDatabase);
  for (auto _ : state) {
    benchmark::DoNotOptimize(repo.AddRecord(e));
    Exec(m, "delete from t_bordertype where F_OrderType='bench'");
  }
  mysql_close(m);
}
BENCHMARK(BM_AddRecord_Library)->Arg(10)->Arg(20000);

void BM_AddRecord_ByHand(benchmark::State& state) {
  Prepare(static_cast<int>(state.range(0)));
  MYSQL* m = Connect(kDatabase);
  MYSQL* other = Connect(kDatabase);
  for (auto _ : state) {
    Exec(m, "select * from T_BOrderType where F_OrderType = 'bench'");
    Exec(m, "select * from T_BOrderType");
    Exec(m, "INSERT INTO t_bordertype (F_OrderType) VALUES ('bench')");
    Exec(other, "delete from t_bordertype where F_OrderType='bench'");
  }
  mysql_close(other);
  mysql_close(m);
}
BENCHMARK(BM_AddRecord_ByHand)->Arg(10)->Arg(20000);

// The text of a document number, on every statement of the numbering paths.
void BM_NumberText(benchmark::State& state) {
  double n = 20261122001;
  for (auto _ : state) {
    benchmark::DoNotOptimize(corvane::Text(n));
    n += 1;
  }
}
BENCHMARK(BM_NumberText);

}  // namespace

BENCHMARK_MAIN();
