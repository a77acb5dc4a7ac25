// The pool of idle connections and the connections shared within a thread.
#include "corvane/frame/internal/session_pool.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "corvane/frame/internal/link.h"

namespace corvane::internal {
namespace {

using Clock = std::chrono::steady_clock;

class Pool {
 public:
  SessionPoolOptions options() {
    std::lock_guard<std::mutex> lock(mu_);
    return options_;
  }

  void Configure(const SessionPoolOptions& options) {
    std::vector<std::unique_ptr<Connection>> closing;
    {
      std::lock_guard<std::mutex> lock(mu_);
      options_ = options;
      if (!options_.enabled) options_.max_idle = 0;
      Trim(Clock::now(), &closing);
    }
  }

  // An idle connection for key that is still alive, or null.
  std::unique_ptr<Connection> Take(const std::string& key) {
    std::vector<std::unique_ptr<Connection>> closing;
    while (true) {
      std::unique_ptr<Connection> found;
      {
        std::lock_guard<std::mutex> lock(mu_);
        Trim(Clock::now(), &closing);
        const auto it = std::find_if(idle_.rbegin(), idle_.rend(),
                                     [&](const Idle& i) { return i.key == key; });
        if (it == idle_.rend()) return nullptr;
        found = std::move(it->connection);
        idle_.erase(std::next(it).base());
      }
      // A connection the server has ended is not handed out.
      if (found->link().Alive()) return found;
      closing.push_back(std::move(found));
    }
  }

  void Give(std::string key, std::unique_ptr<Connection> connection) {
    std::vector<std::unique_ptr<Connection>> closing;
    std::lock_guard<std::mutex> lock(mu_);
    const Clock::time_point now = Clock::now();
    idle_.push_back(Idle{std::move(key), std::move(connection), now});
    Trim(now, &closing);
  }

  std::size_t idle() {
    std::lock_guard<std::mutex> lock(mu_);
    return idle_.size();
  }

 private:
  struct Idle {
    std::string key;
    std::unique_ptr<Connection> connection;
    Clock::time_point since;
  };

  // Moves what has been idle too long, and what is over the limit (the
  // longest idle first), to closing; the caller closes them outside the lock.
  void Trim(Clock::time_point now, std::vector<std::unique_ptr<Connection>>* closing) {
    while (!idle_.empty() && (idle_.size() > options_.max_idle ||
                              now - idle_.front().since >= options_.idle_timeout)) {
      closing->push_back(std::move(idle_.front().connection));
      idle_.pop_front();
    }
  }

  std::mutex mu_;
  SessionPoolOptions options_;
  std::deque<Idle> idle_;  // the most recently returned last
};

// The pool lives as long as anything can still return a connection to it.
std::shared_ptr<Pool> ThePool() {
  static const std::shared_ptr<Pool> pool = std::make_shared<Pool>();
  return pool;
}

// Gives a connection back to the pool when its last holder lets go of it.
struct ReturnToPool {
  std::weak_ptr<Pool> pool;
  std::string key;
  bool pooled;
  void operator()(Connection* c) const {
    std::unique_ptr<Connection> connection(c);
    if (!pooled || connection->State() != 1 || !connection->link().Alive()) return;
    if (const std::shared_ptr<Pool> p = pool.lock()) p->Give(key, std::move(connection));
  }
};

}  // namespace

std::shared_ptr<Connection> AcquireConnection(const std::string& text) {
  const std::shared_ptr<Pool> pool = ThePool();
  const SessionPoolOptions options = pool->options();
  // The connections the live sessions of this thread hold, by text.
  thread_local std::unordered_map<std::string, std::weak_ptr<Connection>> held;
  if (options.share_within_thread) {
    if (const auto it = held.find(text); it != held.end()) {
      if (std::shared_ptr<Connection> c = it->second.lock(); c && c->State() == 1) return c;
    }
  }
  std::unique_ptr<Connection> connection = options.enabled ? pool->Take(text) : nullptr;
  if (!connection) {
    connection = std::make_unique<Connection>();
    connection->SetConnectionString(text);
    connection->Open();
  }
  std::shared_ptr<Connection> shared(connection.release(),
                                     ReturnToPool{pool, text, options.enabled});
  if (options.share_within_thread) {
    std::erase_if(held, [](const auto& entry) { return entry.second.expired(); });
    held[text] = shared;
  }
  return shared;
}

bool ConnectionsAreKept() {
  const SessionPoolOptions options = ThePool()->options();
  return options.enabled || options.share_within_thread;
}

std::size_t IdleConnections() { return ThePool()->idle(); }

}  // namespace corvane::internal

namespace corvane {

void SetSessionPool(const SessionPoolOptions& options) {
  internal::ThePool()->Configure(options);
}

SessionPoolOptions GetSessionPool() { return internal::ThePool()->options(); }

}  // namespace corvane
